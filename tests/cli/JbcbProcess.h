// Runs the built jbcb as a user would, without a display, and collects what it printed.
#pragma once

#include <gtest/gtest.h>

#include <QProcess>
#include <QString>
#include <QStringList>

struct JbcbResult {
  int code = -1;
  QString out;
  QString err;
};

inline JbcbResult runJbcb(const QStringList& arguments) {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.remove("DISPLAY");
  environment.remove("WAYLAND_DISPLAY");
  process.setProcessEnvironment(environment);
  process.start(JBCB_EXECUTABLE, arguments);
  EXPECT_TRUE(process.waitForFinished(120000)) << "jbcb did not finish";
  return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
          QString::fromUtf8(process.readAllStandardError())};
}
