// The command line runs the module's block-editor commands on the open drawing as a script of
// typed lines would: answers queue behind their command, a click in the view answers a point
// question, Escape cancels, and a failing command drops the rest of its script.
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTimer>
#include <QtTest/QTest>

#include "StudioTestSupport.h"
#include "studio/document/CommandSession.h"
#include "studio/document/DrawingDocument.h"
#include "studio/panels/CommandLinePanel.h"

class CommandLine : public StudioTest {
 protected:
  void SetUp() override {
    openDemo();
    session = tab->session();
    QObject::connect(session, &CommandSession::output,
                     [this](const QString& text) { output << text; });
  }
  // Types a line into the command line and presses Enter.
  void type(const QString& line) {
    QLineEdit* input = window->commandLine()->findChild<QLineEdit*>("commandInput");
    ASSERT_NE(input, nullptr);
    QTest::keyClicks(input, line);
    QTest::keyClick(input, Qt::Key_Return);
  }
  bool said(const QString& text) const { return output.contains(text); }

  CommandSession* session = nullptr;
  QStringList output;
};

TEST_F(CommandLine, AScriptOfLinesRunsCommandsWithTheirAnswers) {
  // Pasted into the command line at once, as a script is.
  QApplication::clipboard()->setText("CBELEMENT\nDoor\nLINEAR\n_CBACTIVITY\nDoor\nLinear2");
  QLineEdit* input = window->commandLine()->findChild<QLineEdit*>("commandInput");
  ASSERT_NE(input, nullptr);
  QTest::keyClick(input, Qt::Key_V, Qt::ControlModifier);
  QTest::keyClick(input, Qt::Key_Return);
  EXPECT_TRUE(said("Added Linear2.")) << output.join('\n').toStdString();
  EXPECT_TRUE(said("Linear2 drives no activity.")) << output.join('\n').toStdString();
  EXPECT_TRUE(document->isModified());
  EXPECT_FALSE(session->isRunning());

  output.clear();
  type("NOSUCH");
  EXPECT_TRUE(said("Unknown command \"NOSUCH\"."));
  // A command that fails takes the rest of its script with it: LINEAR is not run as a command.
  session->submit("CBELEMENT\nNoBlock\nLINEAR");
  EXPECT_EQ(output.filter("CBELEMENT failed").size(), 1) << output.join('\n').toStdString();
  EXPECT_FALSE(said("Unknown command \"LINEAR\"."));
}

TEST_F(CommandLine, AClickInTheViewAnswersAPointQuestionAndEscapeCancels) {
  // The command waits for the point in an event loop; the click comes from inside it.
  QTimer::singleShot(0, [this]() {
    EXPECT_TRUE(session->isWaiting());
    mouse(QEvent::MouseButtonPress, QPoint(300, 200), Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, QPoint(300, 200), Qt::LeftButton);
  });
  session->submit("CBACTIVITYICON\nDoor\nLinear1");
  EXPECT_FALSE(session->isRunning());
  // World (400, 400) lies under (300, 200) in the test's view; the next run reports it.
  output.clear();
  session->submit("CBACTIVITYICON\nDoor\nLinear1\n");
  EXPECT_TRUE(said("Activity bar of Linear1 at 400, 400, 0.")) << output.join('\n').toStdString();

  output.clear();
  QTimer::singleShot(0, [this]() {
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(view, &escape);
  });
  session->submit("CBELEMENT\nDoor");
  EXPECT_TRUE(said("CBELEMENT cancelled.")) << output.join('\n').toStdString();
  EXPECT_FALSE(session->isRunning());
}
