// Tests that draw text need a GUI application for fonts: one offscreen application
// for the whole program.
#include <gtest/gtest.h>

#include <QGuiApplication>

namespace {
class GuiEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    m_app = new QGuiApplication(m_argc, m_argv);
  }
  void TearDown() override { delete m_app; }

 private:
  int m_argc = 1;
  char m_name[6] = "tests";
  char* m_argv[2] = {m_name, nullptr};
  QGuiApplication* m_app = nullptr;
};

::testing::Environment* const kGui = ::testing::AddGlobalTestEnvironment(new GuiEnvironment);
}  // namespace
