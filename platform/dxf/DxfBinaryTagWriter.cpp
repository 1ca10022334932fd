// Binary DXF encoding.
#include "platform/dxf/DxfBinaryTagWriter.h"

#include <cstring>

#include "platform/dxf/DxfBinaryTagReader.h"

DxfBinaryTagWriter::DxfBinaryTagWriter() {
  m_data.append(DxfBinaryTagReader::sentinel());
}

void DxfBinaryTagWriter::putLittleEndian(std::uint64_t value, std::size_t bytes) {
  for (std::size_t i = 0; i < bytes; ++i, value >>= 8)
    m_data += static_cast<char>(value & 0xFF);
}

void DxfBinaryTagWriter::putText(int code, std::string_view text) {
  putLittleEndian(static_cast<std::uint64_t>(code), 2);
  m_data += text;
  m_data += '\0';
}

void DxfBinaryTagWriter::putInteger(int code, DxfValueKind kind, std::int64_t value) {
  std::size_t width = kind == DxfValueKind::kInt64   ? 8
                      : kind == DxfValueKind::kInt32 ? 4
                      : kind == DxfValueKind::kInt16 ? 2
                                                     : 1;
  putLittleEndian(static_cast<std::uint64_t>(code), 2);
  putLittleEndian(static_cast<std::uint64_t>(value), width);
}

void DxfBinaryTagWriter::putDouble(int code, double value) {
  std::uint64_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  putLittleEndian(static_cast<std::uint64_t>(code), 2);
  putLittleEndian(bits, 8);
}

void DxfBinaryTagWriter::putChunk(int code, const std::uint8_t* data, std::size_t size) {
  putLittleEndian(static_cast<std::uint64_t>(code), 2);
  m_data += static_cast<char>(size);
  m_data.append(reinterpret_cast<const char*>(data), size);
}
