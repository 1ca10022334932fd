// A persistent object handle: 64 bits, unique in one database, kept across save and load, and
// written in DXF as upper-case hexadecimal.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/base/OdString.h"

class OdDbHandle {
 public:
  OdDbHandle() = default;
  OdDbHandle(std::uint64_t value) : m_value(value) {}  // NOLINT: a handle is its number

  bool isNull() const noexcept { return m_value == 0; }
  std::uint64_t value() const noexcept { return m_value; }
  operator std::uint64_t() const noexcept { return m_value; }  // NOLINT

  // Upper-case hexadecimal without leading zeros ("1F"); "0" for the null handle.
  OdString ascii() const;
  // Parses hexadecimal text; false (and the null handle) when text is not a handle.
  static bool fromAscii(std::string_view text, OdDbHandle& handle);

  OdDbHandle& operator++() {
    ++m_value;
    return *this;
  }

 private:
  std::uint64_t m_value = 0;
};

template <>
struct std::hash<OdDbHandle> {
  std::size_t operator()(const OdDbHandle& h) const noexcept {
    return std::hash<std::uint64_t>()(h.value());
  }
};
