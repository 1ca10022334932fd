// Text DXF formatting. Each tag is laid out in a scratch line and appended once: most of a file is
// short numeric tags, where per-piece appends cost more than the formatting.
#include "platform/dxf/DxfAsciiTagWriter.h"

#include <charconv>
#include <cmath>
#include <cstring>

#include "platform/base/OdError.h"

namespace {
constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
constexpr int kMaxDecimals = 9;
// Below this a decimal significand converts to a double without loss and is alone in the double's
// rounding interval, so the first one found that converts back is the shortest.
constexpr double kMaxSignificand = 1e15;

// Right-aligns digits at width in out; returns the end.
char* rightAligned(char* out, const char* digits, std::size_t length, std::size_t width) {
  const std::size_t pad = length < width ? width - length : 0;
  std::memset(out, ' ', pad);
  std::memcpy(out + pad, digits, length);
  return out + pad + length;
}

// The shortest text of a value with few decimals, as std::to_chars writes it; null when the value
// has more decimals or that text would be in exponent form, which std::to_chars then writes.
// Coordinates and sizes in drawings are mostly such values, and this is several times cheaper.
char* fewDecimals(char* out, double value) {
  if (value == 0.0 && std::signbit(value)) return nullptr;
  const double magnitude = std::fabs(value);
  for (int decimals = 0; decimals <= kMaxDecimals; ++decimals) {
    const double scaled = magnitude * kPowersOfTen[decimals];
    if (!(scaled < kMaxSignificand)) return nullptr;
    const auto significand = static_cast<std::uint64_t>(scaled + 0.5);
    // A double division is correctly rounded, as reading the decimal text back is.
    if (static_cast<double>(significand) / kPowersOfTen[decimals] != magnitude) continue;
    if (decimals > 0 && significand % 10 == 0) return nullptr;
    char digits[24];
    const auto count =
        static_cast<int>(std::to_chars(digits, digits + sizeof digits, significand).ptr - digits);
    int significant = count;
    while (significant > 1 && digits[significant - 1] == '0')
      --significant;
    const int exponentForm = significant + (significant > 1 ? 1 : 0) + 4;  // "d.ddde+XX"
    const int plainForm = decimals == 0 ? count : count > decimals ? count + 1 : decimals + 2;
    if (plainForm > exponentForm) return nullptr;
    if (value < 0) *out++ = '-';
    if (decimals == 0) {
      std::memcpy(out, digits, static_cast<std::size_t>(count));
      return out + count;
    }
    const int whole = count - decimals;
    if (whole > 0) {
      std::memcpy(out, digits, static_cast<std::size_t>(whole));
      out += whole;
    } else {
      *out++ = '0';
    }
    *out++ = '.';
    for (int zero = whole; zero < 0; ++zero)
      *out++ = '0';
    const int fractionStart = whole > 0 ? whole : 0;
    std::memcpy(out, digits + fractionStart, static_cast<std::size_t>(count - fractionStart));
    return out + (count - fractionStart);
  }
  return nullptr;
}
}  // namespace

DxfAsciiTagWriter::DxfAsciiTagWriter(LineEnd lineEnd) : m_crlf(lineEnd == LineEnd::kCrLf) {}

char* DxfAsciiTagWriter::endLine(char* out) const {
  if (m_crlf) *out++ = '\r';
  *out++ = '\n';
  return out;
}

char* DxfAsciiTagWriter::putCode(char* out, int code) const {
  char digits[8];
  auto end = std::to_chars(digits, digits + sizeof digits, code).ptr;
  return endLine(rightAligned(out, digits, static_cast<std::size_t>(end - digits), 3));
}

void DxfAsciiTagWriter::putText(int code, std::string_view text) {
  // Binary files may hold multi-line text; a text file cannot.
  if (hasLineBreak(text))
    throw OdError(eInvalidInput,
                  OdString::format("group code %d: text with a line break cannot be written to a "
                                   "text DXF file",
                                   code)
                      .str());
  char line[16];
  m_data.append(line, static_cast<std::size_t>(putCode(line, code) - line));
  m_data += text;
  m_data.append(line, static_cast<std::size_t>(endLine(line) - line));
}

void DxfAsciiTagWriter::putInteger(int code, DxfValueKind kind, std::int64_t value) {
  const std::size_t width = kind == DxfValueKind::kInt64   ? 18
                            : kind == DxfValueKind::kInt32 ? 9
                                                           : 6;
  char digits[24];
  auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  char line[48];
  char* out =
      rightAligned(putCode(line, code), digits, static_cast<std::size_t>(end - digits), width);
  m_data.append(line, static_cast<std::size_t>(endLine(out) - line));
}

void DxfAsciiTagWriter::putDouble(int code, double value) {
  char line[48];
  char* number = putCode(line, code);
  char* end = fewDecimals(number, value);
  if (!end) end = std::to_chars(number, number + 32, value).ptr;
  // Whole numbers keep a decimal point ("0.0", "-0.0") so they read as doubles at a glance.
  const auto length = static_cast<std::size_t>(end - number);
  if (std::memchr(number, '.', length) == nullptr && std::memchr(number, 'e', length) == nullptr) {
    *end++ = '.';
    *end++ = '0';
  }
  m_data.append(line, static_cast<std::size_t>(endLine(end) - line));
}

void DxfAsciiTagWriter::putChunk(int code, const std::uint8_t* data, std::size_t size) {
  static const char kHex[] = "0123456789ABCDEF";
  char line[16];
  m_data.append(line, static_cast<std::size_t>(putCode(line, code) - line));
  for (std::size_t i = 0; i < size; ++i) {
    m_data += kHex[data[i] >> 4];
    m_data += kHex[data[i] & 0xF];
  }
  m_data.append(line, static_cast<std::size_t>(endLine(line) - line));
}
