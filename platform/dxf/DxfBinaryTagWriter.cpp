// Binary DXF encoding.
#include "platform/dxf/DxfBinaryTagWriter.h"

#include <cstring>

#include "platform/dxf/DxfBinaryTagReader.h"

namespace {
// Writes value into out as width little-endian bytes; returns the end.
char* littleEndian(char* out, std::uint64_t value, std::size_t width) {
  for (std::size_t i = 0; i < width; ++i, value >>= 8)
    *out++ = static_cast<char>(value & 0xFF);
  return out;
}
}  // namespace

DxfBinaryTagWriter::DxfBinaryTagWriter() {
  put(DxfBinaryTagReader::sentinel());
}

void DxfBinaryTagWriter::putNumber(int code, std::uint64_t value, std::size_t width) {
  put(littleEndian(littleEndian(room(10), static_cast<std::uint64_t>(code), 2), value, width));
}

void DxfBinaryTagWriter::putText(int code, std::string_view text) {
  char* out = littleEndian(room(text.size() + 3), static_cast<std::uint64_t>(code), 2);
  std::memcpy(out, text.data(), text.size());
  out += text.size();
  *out++ = '\0';
  put(out);
}

void DxfBinaryTagWriter::putInteger(int code, DxfValueKind kind, std::int64_t value) {
  std::size_t width = kind == DxfValueKind::kInt64   ? 8
                      : kind == DxfValueKind::kInt32 ? 4
                      : kind == DxfValueKind::kInt16 ? 2
                                                     : 1;
  putNumber(code, static_cast<std::uint64_t>(value), width);
}

void DxfBinaryTagWriter::putDouble(int code, double value) {
  std::uint64_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  putNumber(code, bits, 8);
}

void DxfBinaryTagWriter::putChunk(int code, const std::uint8_t* data, std::size_t size) {
  putNumber(code, size, 1);
  put(std::string_view(reinterpret_cast<const char*>(data), size));
}
