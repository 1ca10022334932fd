// Outcomes with a reason.
#include "storage/CJbCustBlockResult.h"

#include <string>

#include "platform/base/OdError.h"
#include "platform/host/CJbTranslator.h"

CJbCustBlockResult CJbCustBlockResult::Failure(OdResult code, const char* sourceText,
                                               std::initializer_list<OdString> arguments) {
  // A failure never reads as success, whatever code a caller passes on.
  return CJbCustBlockResult(code == eOk ? eNotApplicable : code, Text(sourceText, arguments));
}

OdString CJbCustBlockResult::Text(const char* sourceText,
                                  std::initializer_list<OdString> arguments) {
  const std::string pattern = odTranslate("customizable_blocks", sourceText).str();
  // One pass, so that an argument that holds "%2" itself stays as it is.
  std::string text;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const std::size_t number = i + 1 < pattern.size() && pattern[i] == '%'
                                   ? static_cast<std::size_t>(pattern[i + 1] - '0')
                                   : 0;
    if (number >= 1 && number <= arguments.size()) {
      text += arguments.begin()[number - 1].str();
      ++i;
    } else {
      text += pattern[i];
    }
  }
  return OdString(text.c_str());
}

void CJbCustBlockResult::ThrowIfFailed() const {
  if (m_code != eOk) throw OdError(m_code, m_reason.str());
}
