// Text DXF formatting, laid out in place in the data.
#include "platform/dxf/DxfAsciiTagWriter.h"

#include <charconv>
#include <cmath>
#include <cstring>

#include "platform/base/OdError.h"

namespace {
constexpr int kMaxDecimals = 9;
constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
// Below this a decimal significand converts to a double without loss, and the double's rounding
// interval is narrower than one unit of it: the significand found is the only one, so the text
// without its trailing zeros is the shortest.
constexpr double kMaxSignificand = 1e15;
constexpr std::size_t kLongestNumber = 32;  // a double's shortest text, with ".0" added
// What fewDecimals may write, its whole digit buffer copies included.
constexpr std::size_t kNumberRoom = 64;
struct ZeroStep {
  int digits;
  std::uint64_t divisor;
};
constexpr ZeroStep kZeroSteps[] = {{4, 10000}, {2, 100}, {1, 10}};

// Group codes right-aligned in three columns (four from 1000 on), looked up rather than formatted.
struct CodeColumns {
  char text[DxfGroupCode::kLastFileCode + 1][4];
};
constexpr CodeColumns makeCodeColumns() {
  CodeColumns table{};
  for (int code = 0; code <= DxfGroupCode::kLastFileCode; ++code) {
    const int width = code >= 1000 ? 4 : 3;
    int rest = code;
    for (int column = width - 1; column >= 0; --column, rest /= 10)
      table.text[code][column] =
          column == width - 1 || rest > 0 ? static_cast<char>('0' + rest % 10) : ' ';
  }
  return table;
}
constexpr CodeColumns kCodeColumns = makeCodeColumns();

// Right-aligns digits at width in out; returns the end.
char* rightAligned(char* out, const char* digits, std::size_t length, std::size_t width) {
  for (std::size_t pad = length; pad < width; ++pad)
    *out++ = ' ';
  std::memcpy(out, digits, length);
  return out + length;
}

// The shortest text of a value with at most kMaxDecimals decimals, as std::to_chars writes it,
// whole numbers with ".0" added so that they read as doubles at a glance ("0.0", "-0.0"); null
// when the value has more decimals, or when that text would be in exponent form. Coordinates and
// sizes in drawings are mostly such values, and this is several times cheaper.
char* fewDecimals(char* out, double value) {
  if (value == 0.0 && std::signbit(value)) return nullptr;
  const double magnitude = std::fabs(value);
  int decimals = kMaxDecimals;
  while (decimals >= 0 && !(magnitude * kPowersOfTen[decimals] < kMaxSignificand))
    --decimals;
  if (decimals < 0) return nullptr;
  auto significand = static_cast<std::uint64_t>(magnitude * kPowersOfTen[decimals] + 0.5);
  // A double division is correctly rounded, as reading the decimal text back is.
  if (static_cast<double>(significand) / kPowersOfTen[decimals] != magnitude) return nullptr;
  // Whole numbers are common and have all their decimals zero: strip them a few at a time.
  for (const auto& step : kZeroSteps) {
    while (decimals >= step.digits && significand % step.divisor == 0) {
      significand /= step.divisor;
      decimals -= step.digits;
    }
  }
  char digits[24] = {};
  const auto count =
      static_cast<int>(std::to_chars(digits, digits + sizeof digits, significand).ptr - digits);
  int significant = count;
  while (significant > 1 && digits[significant - 1] == '0')
    --significant;
  const int exponentForm = significant + (significant > 1 ? 1 : 0) + 4;  // "d.ddde+XX"
  const int plainForm = decimals == 0 ? count : count > decimals ? count + 1 : decimals + 2;
  if (plainForm > exponentForm) return nullptr;
  if (value < 0) *out++ = '-';
  const int whole = count - decimals;
  // Fixed-size copies of the digit buffer: the room holds them, and they need no call.
  if (whole > 0) {
    std::memcpy(out, digits, sizeof digits);
    out += whole;
  } else {
    *out++ = '0';
  }
  *out++ = '.';
  if (decimals == 0) {
    *out++ = '0';
    return out;
  }
  for (int zero = whole; zero < 0; ++zero)
    *out++ = '0';
  const int fraction = whole > 0 ? whole : 0;
  std::memcpy(out, digits + fraction, sizeof digits - static_cast<std::size_t>(fraction));
  return out + (count - fraction);
}
}  // namespace

DxfAsciiTagWriter::DxfAsciiTagWriter(LineEnd lineEnd) : m_crlf(lineEnd == LineEnd::kCrLf) {}

char* DxfAsciiTagWriter::putCode(char* out, int code) const {
  // Callers have checked the code against the group-code table.
  std::memcpy(out, kCodeColumns.text[code], 4);
  return endLine(out + (code >= 1000 ? 4 : 3));
}

void DxfAsciiTagWriter::putText(int code, std::string_view text) {
  // Binary files may hold multi-line text; a text file cannot.
  if (hasLineBreak(text))
    throw OdError(eInvalidInput,
                  OdString::format("group code %d: text with a line break cannot be written to a "
                                   "text DXF file",
                                   code)
                      .str());
  char* out = putCode(room(kLongestCode + text.size() + 2), code);
  std::memcpy(out, text.data(), text.size());
  put(endLine(out + text.size()));
}

void DxfAsciiTagWriter::putInteger(int code, DxfValueKind kind, std::int64_t value) {
  const std::size_t width = kind == DxfValueKind::kInt64   ? 18
                            : kind == DxfValueKind::kInt32 ? 9
                                                           : 6;
  char digits[24];
  auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  char* out = putCode(room(kLongestCode + 24 + 2), code);
  put(endLine(rightAligned(out, digits, static_cast<std::size_t>(end - digits), width)));
}

void DxfAsciiTagWriter::putDouble(int code, double value) {
  char* number = putCode(room(kLongestCode + kNumberRoom + 2), code);
  char* end = fewDecimals(number, value);
  if (!end) {
    end = std::to_chars(number, number + kLongestNumber, value).ptr;
    const auto length = static_cast<std::size_t>(end - number);
    if (std::memchr(number, '.', length) == nullptr &&
        std::memchr(number, 'e', length) == nullptr) {
      *end++ = '.';
      *end++ = '0';
    }
  }
  put(endLine(end));
}

void DxfAsciiTagWriter::putChunk(int code, const std::uint8_t* data, std::size_t size) {
  static const char kHex[] = "0123456789ABCDEF";
  char* out = putCode(room(kLongestCode + 2 * size + 2), code);
  for (std::size_t i = 0; i < size; ++i) {
    *out++ = kHex[data[i] >> 4];
    *out++ = kHex[data[i] & 0xF];
  }
  put(endLine(out));
}
