// The command line: what commands said, the question waiting for an answer, and a line to type
// a command or an answer into (Escape cancels the running command). Messages of the module and
// the platform are shown here as well.
#pragma once

#include <QWidget>

class CommandSession;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

class CommandLinePanel : public QWidget {
  Q_OBJECT

 public:
  explicit CommandLinePanel(QWidget* parent = nullptr);
  // The session typed lines go to; none leaves the line disabled.
  void setSession(CommandSession* session);
  void appendMessage(const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void showPrompt(const QString& prompt);
  void submit();

  CommandSession* m_session = nullptr;
  QPlainTextEdit* m_log;
  QLabel* m_prompt;
  QLineEdit* m_input;
};
