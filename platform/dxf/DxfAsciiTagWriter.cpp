// Text DXF formatting.
#include "platform/dxf/DxfAsciiTagWriter.h"

#include <charconv>
#include <cstring>

#include "platform/base/OdError.h"

DxfAsciiTagWriter::DxfAsciiTagWriter(LineEnd lineEnd) : m_crlf(lineEnd == LineEnd::kCrLf) {}

void DxfAsciiTagWriter::endLine() {
  if (m_crlf) m_data += '\r';
  m_data += '\n';
}

void DxfAsciiTagWriter::putCode(int code) {
  char digits[8];
  auto end = std::to_chars(digits, digits + sizeof digits, code).ptr;
  std::size_t length = static_cast<std::size_t>(end - digits);
  if (length < 3) m_data.append(3 - length, ' ');
  m_data.append(digits, length);
  endLine();
}

void DxfAsciiTagWriter::putText(int code, std::string_view text) {
  // Binary files may hold multi-line text; a text file cannot.
  if (text.find_first_of("\r\n") != std::string_view::npos)
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
  std::size_t length = static_cast<std::size_t>(end - digits);
  putCode(code);
  if (length < width) m_data.append(width - length, ' ');
  m_data.append(digits, length);
  endLine();
}

void DxfAsciiTagWriter::putDouble(int code, double value) {
  char digits[32];
  auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  std::size_t length = static_cast<std::size_t>(end - digits);
  putCode(code);
  m_data.append(digits, length);
  // Whole numbers keep a decimal point ("0.0", "-0.0") so they read as doubles at a glance.
  if (std::memchr(digits, '.', length) == nullptr && std::memchr(digits, 'e', length) == nullptr)
    m_data += ".0";
  endLine();
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
