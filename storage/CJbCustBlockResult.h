// The outcome of a storage or editing operation: success, or a failure with the platform's code
// and a reason for the user, translated in the "customizable_blocks" context, that a host shows
// as it stands. It tests true on success, so that callers that need only the outcome read as
// before.
#pragma once

#include <initializer_list>

#include "platform/base/OdResult.h"
#include "platform/base/OdString.h"

class CJbCustBlockResult {
 public:
  // Success.
  CJbCustBlockResult() = default;
  // A failure; `sourceText` is translated and its "%1", "%2", ... replaced by the arguments.
  static CJbCustBlockResult Failure(OdResult code, const char* sourceText,
                                    std::initializer_list<OdString> arguments = {});
  // The translated text with its "%1", "%2", ... replaced by the arguments.
  static OdString Text(const char* sourceText, std::initializer_list<OdString> arguments = {});

  explicit operator bool() const { return m_code == eOk; }
  OdResult Code() const { return m_code; }
  // Empty on success.
  const OdString& Reason() const { return m_reason; }
  // OdError carrying the code and the reason, for callers that answer failures with exceptions.
  void ThrowIfFailed() const;

 private:
  CJbCustBlockResult(OdResult code, const OdString& reason) : m_code(code), m_reason(reason) {}

  OdResult m_code = eOk;
  OdString m_reason;
};
