#include "studio/document/CommandSession.h"

#include <QEventLoop>

#include "platform/base/OdError.h"
#include "platform/host/OdEdCommandStack.h"
#include "platform/host/OdQStringConversion.h"
#include "studio/document/DrawingDocument.h"

CommandSession::CommandSession(DrawingDocument* document) : m_document(document) {}

CommandSession::~CommandSession() = default;

OdDbDatabase* CommandSession::database() const {
  return m_document->database();
}

void CommandSession::submit(const QString& lines) {
  for (const QString& line : lines.split(QLatin1Char('\n')))
    m_queue.append(line.trimmed());
  if (m_loop) {
    m_loop->quit();  // the waiting question takes the first line
    return;
  }
  if (!m_running) runQueued();
}

void CommandSession::cancel() {
  m_queue.clear();
  if (!m_loop) return;
  m_cancelled = true;
  m_loop->quit();
}

void CommandSession::runQueued() {
  while (!m_queue.isEmpty()) {
    const QString name = m_queue.takeFirst();
    if (!name.isEmpty()) run(name);
  }
}

void CommandSession::run(const QString& name) {
  const OdEdCommandPtr command = odedRegCmds()->lookupCmd(fromQString(name));
  if (command.isNull()) {
    emit output(tr("Unknown command \"%1\".").arg(name));
    return;
  }
  emit output(tr("Command: %1").arg(name));
  m_running = true;
  try {
    command->execute(this);
  } catch (const OdError& error) {
    m_queue.clear();
    emit output(error.code() == eEndOfFile
                    ? tr("%1 cancelled.").arg(name)
                    : tr("%1 failed: %2").arg(name, QString::fromStdString(error.description())));
  }
  m_running = false;
  emit prompting(QString());
  // A command may change anything in the drawing.
  m_document->notifyEdited();
}

OdString CommandSession::getString(const OdString& prompt) {
  const QString question = toQString(prompt);
  while (m_queue.isEmpty()) {
    emit prompting(question);
    QEventLoop loop;
    m_loop = &loop;
    loop.exec();
    m_loop = nullptr;
    if (m_cancelled) {
      m_cancelled = false;
      throw OdError(eEndOfFile, "the command was cancelled");
    }
  }
  const QString answer = m_queue.takeFirst();
  emit output(question + QLatin1Char(' ') + answer);
  return fromQString(answer);
}

void CommandSession::putString(const OdString& text) {
  emit output(toQString(text));
}
