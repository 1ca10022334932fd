// The messages the module and the platform give the user, taken from the host services into the
// studio's window (its command line), with warnings and errors named as such.
#pragma once

#include <QObject>

#include "platform/host/CJbSystemServices.h"

class HostMessages : public QObject, public CJbSystemServices {
  Q_OBJECT

 signals:
  void message(const QString& text);

 protected:
  void Show(MessageKind kind, const OdString& text) override;
};
