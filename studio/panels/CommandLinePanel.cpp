#include "studio/panels/CommandLinePanel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "studio/document/CommandSession.h"

CommandLinePanel::CommandLinePanel(QWidget* parent)
    : QWidget(parent),
      m_log(new QPlainTextEdit(this)),
      m_prompt(new QLabel(this)),
      m_input(new QLineEdit(this)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(2, 2, 2, 2);
  layout->addWidget(m_log);
  auto* line = new QHBoxLayout;
  line->addWidget(m_prompt);
  line->addWidget(m_input, 1);
  layout->addLayout(line);
  m_log->setReadOnly(true);
  m_log->setMaximumBlockCount(2000);
  m_input->setObjectName(QStringLiteral("commandInput"));
  m_input->installEventFilter(this);
  connect(m_input, &QLineEdit::returnPressed, this, &CommandLinePanel::submit);
  setSession(nullptr);
}

void CommandLinePanel::setSession(CommandSession* session) {
  if (m_session) disconnect(m_session, nullptr, this, nullptr);
  m_session = session;
  m_input->setEnabled(session != nullptr);
  showPrompt(QString());
  if (!session) return;
  connect(session, &CommandSession::output, this, &CommandLinePanel::appendMessage);
  connect(session, &CommandSession::prompting, this, &CommandLinePanel::showPrompt);
  connect(session, &QObject::destroyed, this, [this]() { setSession(nullptr); });
}

void CommandLinePanel::appendMessage(const QString& text) {
  m_log->appendPlainText(text);
}

void CommandLinePanel::showPrompt(const QString& prompt) {
  m_prompt->setText(prompt.isEmpty() ? tr("Command:") : prompt);
}

void CommandLinePanel::submit() {
  const QString text = m_input->text();
  m_input->clear();
  if (m_session) m_session->submit(text);
}

bool CommandLinePanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_input && event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape && m_session) {
    m_session->cancel();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}
