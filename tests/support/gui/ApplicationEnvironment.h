// One offscreen Qt application for a whole test program: drawing text needs fonts (a
// QGuiApplication), widgets need a QApplication.
#pragma once

#include <gtest/gtest.h>

#include <QByteArray>

template <class Application>
class ApplicationEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    m_application = new Application(m_argc, m_argv);
  }
  void TearDown() override { delete m_application; }

 private:
  int m_argc = 1;
  char m_name[6] = "tests";
  char* m_argv[2] = {m_name, nullptr};
  Application* m_application = nullptr;
};
