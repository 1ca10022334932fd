// Typed access to a tag's value: text is parsed, binary numbers are decoded from their bytes.
#include "platform/dxf/DxfTag.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "platform/base/OdByteOrder.h"
#include "platform/base/OdError.h"

namespace {
bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isBlank(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back()))
    text.remove_suffix(1);
  return text;
}

// Numbers may carry a '+' that std::from_chars does not take.
std::string_view numberText(std::string_view text) {
  text = trimmed(text);
  if (text.size() > 1 && text.front() == '+' && text[1] != '-') text.remove_prefix(1);
  return text;
}

// Most coordinates are short plain decimals ("-12.375"). When the digits make an integer below
// 2^53 and there are at most 22 of them after the point, both that integer and the power of ten
// are exact doubles, so one correctly rounded division gives the correctly rounded value.
bool plainDecimal(std::string_view text, double& value) {
  static constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                       1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                       1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  constexpr std::uint64_t kExactLimit = std::uint64_t(1) << 53;
  constexpr std::ptrdiff_t kMostDigits = 19;  // their integer cannot overflow 64 bits
  const char* p = text.data();
  const char* const end = p + text.size();
  const bool negative = p < end && *p == '-';
  if (negative) ++p;
  const auto isDigit = [](char c) { return static_cast<unsigned>(c - '0') < 10; };
  std::uint64_t digits = 0;
  const char* const integerPart = p;
  for (; p < end && isDigit(*p) && p - integerPart < kMostDigits; ++p)
    digits = digits * 10 + static_cast<unsigned>(*p - '0');
  std::ptrdiff_t count = p - integerPart;
  std::ptrdiff_t fraction = 0;
  if (p < end && *p == '.') {
    const char* const fractionPart = ++p;
    for (; p < end && isDigit(*p) && count + (p - fractionPart) < kMostDigits; ++p)
      digits = digits * 10 + static_cast<unsigned>(*p - '0');
    fraction = p - fractionPart;
    count += fraction;
  }
  if (p != end || count == 0 || digits >= kExactLimit || fraction > 22) return false;
  const double magnitude =
      fraction > 0 ? static_cast<double>(digits) / kPowers[fraction] : static_cast<double>(digits);
  value = negative ? -magnitude : magnitude;
  return true;
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

std::uint64_t littleEndian(std::string_view bytes) {
  std::uint64_t value = 0;
  for (std::size_t i = bytes.size(); i-- > 0;)
    value = (value << 8) | static_cast<unsigned char>(bytes[i]);
  return value;
}

// A \U+XXXX escape at text[at], as a code unit; -1 when there is none.
long escapeAt(std::string_view text, std::size_t at) {
  if (at + 7 > text.size() || text[at] != '\\' || text[at + 1] != 'U' || text[at + 2] != '+')
    return -1;
  long unit = 0;
  for (std::size_t i = at + 3; i < at + 7; ++i) {
    int digit = hexDigit(text[i]);
    if (digit < 0) return -1;
    unit = unit * 16 + digit;
  }
  return unit;
}

void appendUtf8(std::string& out, unsigned long cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

// Escapes hold UTF-16 code units: a surrogate pair makes one character, a lone surrogate
// becomes the replacement character.
std::string decodeEscapes(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    long unit = escapeAt(text, i);
    if (unit < 0) {
      out += text[i++];
      continue;
    }
    i += 7;
    unsigned long cp = static_cast<unsigned long>(unit);
    if (unit >= 0xD800 && unit <= 0xDBFF) {
      long low = escapeAt(text, i);
      if (low >= 0xDC00 && low <= 0xDFFF) {
        cp = 0x10000 + ((cp - 0xD800) << 10) + static_cast<unsigned long>(low - 0xDC00);
        i += 7;
      } else {
        cp = 0xFFFD;
      }
    } else if (unit >= 0xDC00 && unit <= 0xDFFF) {
      cp = 0xFFFD;
    }
    appendUtf8(out, cp);
  }
  return out;
}

constexpr std::size_t kShownLength = 40;

// The start of a value as messages show it, control characters as '?'.
std::string shownStart(std::string_view value) {
  std::string shown;
  for (char c : value.substr(0, kShownLength))
    shown += static_cast<unsigned char>(c) < 0x20 ? '?' : c;
  return shown;
}
}  // namespace

OdString DxfTag::position() const {
  if (m_form == FileForm::kText) return OdString::format("line %zu", m_location);
  return OdString::format("byte 0x%zX", m_location);
}

bool DxfTag::is(int code, std::string_view text) const noexcept {
  return m_code == code && bareValue() == text;
}

std::string_view DxfTag::bareValue() const noexcept {
  std::string_view value = m_value;
  while (!value.empty() && isBlank(value.back()))
    value.remove_suffix(1);
  return value;
}

bool DxfTag::isText() const noexcept {
  if (m_form == FileForm::kText) return true;
  DxfValueKind k = kind();
  return k == DxfValueKind::kString || k == DxfValueKind::kHandle;
}

void DxfTag::throwMisplaced(const std::string& what) const {
  const std::string shown = isText() ? " '" + shownStart(m_value) + "'" : std::string();
  throw OdError(eBadDxfSequence, position().str() + ": group code " + std::to_string(m_code) +
                                     shown + " met, " + what);
}

void DxfTag::fail(const char* expected) const {
  std::string shown;
  if (isText()) {
    shown = "value '" + shownStart(m_value) + (m_value.size() > kShownLength ? "...'" : "'");
  } else {
    shown = std::string("holds ") + DxfGroupCode::kindName(kind());
  }
  throw OdError(eInvalidDxfCode,
                OdString::format("%s: group code %d %s, expected %s", position().c_str(), m_code,
                                 shown.c_str(), expected)
                    .str());
}

std::int64_t DxfTag::integer(std::int64_t min, std::int64_t max, const char* expected) const {
  std::int64_t value = 0;
  if (isText()) {
    std::string_view text = numberText(m_value);
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || ec != std::errc() || end != text.data() + text.size()) fail(expected);
  } else {
    DxfValueKind k = kind();
    if (k == DxfValueKind::kDouble || k == DxfValueKind::kBinary || m_value.empty() ||
        m_value.size() > sizeof value)
      fail(expected);
    // Sign-extend from the stored width (1, 2, 4 or 8 bytes).
    unsigned bits = static_cast<unsigned>(m_value.size() * 8);
    std::uint64_t raw = littleEndian(m_value);
    if (bits < 64 && (raw >> (bits - 1)) & 1) raw |= ~std::uint64_t(0) << bits;
    value = static_cast<std::int64_t>(raw);
  }
  if (value < min || value > max) fail(expected);
  return value;
}

std::int16_t DxfTag::asInt16() const {
  return static_cast<std::int16_t>(integer(std::numeric_limits<std::int16_t>::min(),
                                           std::numeric_limits<std::int16_t>::max(),
                                           DxfGroupCode::kindName(DxfValueKind::kInt16)));
}

std::int32_t DxfTag::asInt32() const {
  return static_cast<std::int32_t>(integer(std::numeric_limits<std::int32_t>::min(),
                                           std::numeric_limits<std::int32_t>::max(),
                                           DxfGroupCode::kindName(DxfValueKind::kInt32)));
}

std::int64_t DxfTag::asInt64() const {
  return integer(std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max(),
                 DxfGroupCode::kindName(DxfValueKind::kInt64));
}

bool DxfTag::asBool() const {
  return integer(std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max(),
                 DxfGroupCode::kindName(DxfValueKind::kBool)) != 0;
}

double DxfTag::asDouble() const {
  static constexpr const char* kFinite = "a finite real number";
  double value = 0.0;
  if (m_form == FileForm::kText) {
    if (plainDecimal(m_value, value)) return value;
  } else if (OdByteOrder::kLittleEndianHost && m_kind == DxfValueKind::kDouble &&
             m_value.size() == sizeof value) {
    std::memcpy(&value, m_value.data(), sizeof value);
    if (std::isfinite(value)) return value;
  }
  const char* expected = DxfGroupCode::kindName(DxfValueKind::kDouble);
  if (!isText()) {
    if (kind() != DxfValueKind::kDouble || m_value.size() != sizeof(double)) fail(expected);
    std::uint64_t bits = littleEndian(m_value);
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isfinite(value)) fail(kFinite);
    return value;
  }
  std::string_view text = numberText(m_value);
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || ec != std::errc() || end != text.data() + text.size()) fail(expected);
  // No geometry or measure holds infinities or "nan"; they would poison every computation.
  if (!std::isfinite(value)) fail(kFinite);
  return value;
}

OdString DxfTag::asString() const {
  if (!isText()) fail(DxfGroupCode::kindName(DxfValueKind::kString));
  // Text ends at a zero byte in every DXF reader; one inside a value cannot be written back.
  if (m_value.find('\0') != std::string_view::npos) fail("text without zero bytes");
  if (m_value.find("\\U+") == std::string_view::npos) return OdString(m_value);
  return OdString(decodeEscapes(m_value));
}

OdDbHandle DxfTag::asHandle() const {
  OdDbHandle handle;
  if (!isText() || !OdDbHandle::fromAscii(trimmed(m_value), handle))
    fail(DxfGroupCode::kindName(DxfValueKind::kHandle));
  return handle;
}

void DxfTag::appendBinary(std::vector<std::uint8_t>& out) const {
  const char* expected = DxfGroupCode::kindName(DxfValueKind::kBinary);
  if (!isText()) {
    if (kind() != DxfValueKind::kBinary) fail(expected);
    out.insert(out.end(), m_value.begin(), m_value.end());
    return;
  }
  std::string_view hex = trimmed(m_value);
  if (hex.size() % 2 != 0) fail(expected);
  std::size_t start = out.size();
  out.reserve(start + hex.size() / 2);
  for (std::size_t i = 0; i < hex.size(); i += 2) {
    int high = hexDigit(hex[i]);
    int low = hexDigit(hex[i + 1]);
    if (high < 0 || low < 0) {
      out.resize(start);
      fail(expected);
    }
    out.push_back(static_cast<std::uint8_t>(high * 16 + low));
  }
}

std::vector<std::uint8_t> DxfTag::asBinary() const {
  std::vector<std::uint8_t> bytes;
  appendBinary(bytes);
  return bytes;
}
