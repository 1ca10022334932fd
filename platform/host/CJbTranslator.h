// Translation of user-visible text. The embedded translator asks Qt's installed translators and
// falls back to the source text; a host may install its own.
#pragma once

#include "platform/base/OdString.h"

class CJbTranslator {
 public:
  CJbTranslator() = default;
  CJbTranslator(const CJbTranslator&) = delete;
  CJbTranslator& operator=(const CJbTranslator&) = delete;
  virtual ~CJbTranslator();

  // The text in the user's language, looked up in a translation context such as
  // "customizable_blocks". Works without an application object: the source text comes back.
  virtual OdString Translate(const char* context, const char* sourceText) const;

  // The installed translator, or the embedded one.
  static CJbTranslator* Get();
  // Installs a translator the caller keeps alive (null goes back to the embedded one); returns
  // the one installed before, null when that was the embedded one.
  static CJbTranslator* Set(CJbTranslator* translator);
};

// Shorthand for CJbTranslator::Get()->Translate(context, sourceText).
OdString odTranslate(const char* context, const char* sourceText);
