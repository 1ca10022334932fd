#include "platform/db/OdDbHandle.h"

#include <cinttypes>
#include <cstdio>

OdString OdDbHandle::ascii() const {
  char buffer[17];
  std::snprintf(buffer, sizeof buffer, "%" PRIX64, m_value);
  return OdString(buffer);
}

bool OdDbHandle::fromAscii(std::string_view text, OdDbHandle& handle) {
  handle = OdDbHandle();
  if (text.empty() || text.size() > 16) return false;
  std::uint64_t value = 0;
  for (char c : text) {
    int digit;
    if (c >= '0' && c <= '9')
      digit = c - '0';
    else if (c >= 'A' && c <= 'F')
      digit = c - 'A' + 10;
    else if (c >= 'a' && c <= 'f')
      digit = c - 'a' + 10;
    else
      return false;
    value = (value << 4) | static_cast<std::uint64_t>(digit);
  }
  handle = OdDbHandle(value);
  return true;
}
