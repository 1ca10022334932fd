#include "platform/base/OdError.h"

#include <utility>

OdError::OdError(OdResult code) : m_code(code), m_text(odResultName(code)) {}

OdError::OdError(OdResult code, std::string message)
    : m_code(code), m_text(std::string(odResultName(code)) + ": " + std::move(message)) {}

OdError_NotThatKindOfClass::OdError_NotThatKindOfClass(const char* fromClass, const char* toClass)
    : OdError(eNotThatKindOfClass,
              std::string("an object of class ") + fromClass + " is not a " + toClass) {}
