// The translator in use and the embedded one that defers to Qt.
#include "platform/host/CJbTranslator.h"

#include <QCoreApplication>
#include <utility>

#include "platform/host/OdQStringConversion.h"

namespace {
CJbTranslator* g_installed = nullptr;
}

CJbTranslator::~CJbTranslator() = default;

OdString CJbTranslator::Translate(const char* context, const char* sourceText) const {
  if (!sourceText) return OdString();
  return fromQString(QCoreApplication::translate(context, sourceText));
}

CJbTranslator* CJbTranslator::Get() {
  static CJbTranslator embedded;
  return g_installed ? g_installed : &embedded;
}

CJbTranslator* CJbTranslator::Set(CJbTranslator* translator) {
  return std::exchange(g_installed, translator);
}

OdString odTranslate(const char* context, const char* sourceText) {
  return CJbTranslator::Get()->Translate(context, sourceText);
}
