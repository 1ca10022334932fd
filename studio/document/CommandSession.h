// The command line of one drawing: runs the host's commands by name and answers their questions
// from the lines a person types, one line per answer, as a script of them would read. Lines
// typed ahead wait in turn; a question with no line waiting waits in the event loop, so the
// person can look around, type, or pick a point in a view (which answers as "x,y"). Cancelling
// ends the running command and drops what was typed ahead; so does a command that fails.
#pragma once

#include <QObject>
#include <QStringList>

#include "platform/host/OdEdCommandContext.h"
#include "platform/host/OdEdUserIO.h"

class DrawingDocument;
class QEventLoop;

class CommandSession : public QObject, public OdEdCommandContext, public OdEdUserIO {
  Q_OBJECT

 public:
  explicit CommandSession(DrawingDocument* document);
  ~CommandSession() override;

  // Lines typed: each starts a command when none runs and answers its question otherwise.
  void submit(const QString& lines);
  void cancel();
  bool isRunning() const { return m_running; }
  // Whether a running command waits for an answer that no line holds yet.
  bool isWaiting() const { return m_loop != nullptr; }

  OdDbDatabase* database() const override;
  OdEdUserIO* userIO() const override { return const_cast<CommandSession*>(this); }
  OdString getString(const OdString& prompt) override;
  void putString(const OdString& text) override;

 signals:
  // The question waiting for an answer; empty when no command runs.
  void prompting(const QString& prompt);
  // A line for the person to read: what a command says, an answer as given, an error.
  void output(const QString& text);

 private:
  void runQueued();
  void run(const QString& name);

  DrawingDocument* m_document;
  QStringList m_queue;
  bool m_running = false;
  bool m_cancelled = false;
  QEventLoop* m_loop = nullptr;
};
