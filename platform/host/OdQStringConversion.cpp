// UTF-8 in both directions, so no text is lost at the Qt boundary.
#include "platform/host/OdQStringConversion.h"

#include <QByteArray>

QString toQString(const OdString& text) {
  return QString::fromUtf8(text.c_str(), text.getLength());
}

OdString fromQString(const QString& text) {
  const QByteArray utf8 = text.toUtf8();
  return OdString(utf8.constData(), static_cast<std::size_t>(utf8.size()));
}
