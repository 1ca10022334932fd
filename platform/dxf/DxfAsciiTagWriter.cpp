// Text DXF formatting.
#include "platform/dxf/DxfAsciiTagWriter.h"

#include <charconv>
#include <cstring>

#include "platform/base/OdError.h"

namespace {
// Right-aligns digits at width in line; returns the length.
std::size_t rightAligned(char* line, const char* digits, std::size_t length, std::size_t width) {
  const std::size_t pad = length < width ? width - length : 0;
  std::memset(line, ' ', pad);
  std::memcpy(line + pad, digits, length);
  return pad + length;
}
}  // namespace

DxfAsciiTagWriter::DxfAsciiTagWriter(LineEnd lineEnd) : m_crlf(lineEnd == LineEnd::kCrLf) {}

void DxfAsciiTagWriter::endLine() {
  if (m_crlf) m_data += '\r';
  m_data += '\n';
}

void DxfAsciiTagWriter::putLine(char* line, std::size_t length) {
  if (m_crlf) line[length++] = '\r';
  line[length++] = '\n';
  m_data.append(line, length);
}

void DxfAsciiTagWriter::putCode(int code) {
  char digits[8];
  auto end = std::to_chars(digits, digits + sizeof digits, code).ptr;
  char line[16];
  putLine(line, rightAligned(line, digits, static_cast<std::size_t>(end - digits), 3));
}

void DxfAsciiTagWriter::putText(int code, std::string_view text) {
  // Binary files may hold multi-line text; a text file cannot.
  if (hasLineBreak(text))
    throw OdError(eInvalidInput,
                  OdString::format("group code %d: text with a line break cannot be written to a "
                                   "text DXF file",
                                   code)
                      .str());
  putCode(code);
  m_data += text;
  endLine();
}

void DxfAsciiTagWriter::putInteger(int code, DxfValueKind kind, std::int64_t value) {
  const std::size_t width = kind == DxfValueKind::kInt64   ? 18
                            : kind == DxfValueKind::kInt32 ? 9
                                                           : 6;
  char digits[24];
  auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  putCode(code);
  char line[32];
  putLine(line, rightAligned(line, digits, static_cast<std::size_t>(end - digits), width));
}

void DxfAsciiTagWriter::putDouble(int code, double value) {
  char line[40];
  auto end = std::to_chars(line, line + 32, value).ptr;
  std::size_t length = static_cast<std::size_t>(end - line);
  putCode(code);
  // Whole numbers keep a decimal point ("0.0", "-0.0") so they read as doubles at a glance.
  if (std::memchr(line, '.', length) == nullptr && std::memchr(line, 'e', length) == nullptr) {
    line[length++] = '.';
    line[length++] = '0';
  }
  putLine(line, length);
}

void DxfAsciiTagWriter::putChunk(int code, const std::uint8_t* data, std::size_t size) {
  static const char kHex[] = "0123456789ABCDEF";
  putCode(code);
  for (std::size_t i = 0; i < size; ++i) {
    m_data += kHex[data[i] >> 4];
    m_data += kHex[data[i] & 0xF];
  }
  endLine();
}
