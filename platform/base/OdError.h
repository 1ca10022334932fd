// The exception every platform and module failure is raised with: a result code plus a message
// that says what was wrong and where.
#pragma once

#include <exception>
#include <string>

#include "platform/base/OdResult.h"

class OdError : public std::exception {
 public:
  explicit OdError(OdResult code);
  OdError(OdResult code, std::string message);

  OdResult code() const noexcept { return m_code; }
  // "eCode: message", or the code's name alone when no message was given.
  const std::string& description() const noexcept { return m_text; }
  const char* what() const noexcept override { return m_text.c_str(); }

 private:
  OdResult m_code;
  std::string m_text;
};

// Raised by checked smart-pointer casts and class lookups.
class OdError_NotThatKindOfClass : public OdError {
 public:
  OdError_NotThatKindOfClass(const char* fromClass, const char* toClass);
};
