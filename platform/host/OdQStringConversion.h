// Conversions between the platform's UTF-8 text and Qt's strings, used only where text crosses
// into or out of Qt.
#pragma once

#include <QString>

#include "platform/base/OdString.h"

QString toQString(const OdString& text);
OdString fromQString(const QString& text);
