// Writes binary DXF with two-byte group codes: the sentinel, then each code and its value in
// little-endian bytes.
#pragma once

#include "platform/dxf/DxfTagWriter.h"

class DxfBinaryTagWriter : public DxfTagWriter {
 public:
  DxfBinaryTagWriter();

 protected:
  void putText(int code, std::string_view text) override;
  void putInteger(int code, DxfValueKind kind, std::int64_t value) override;
  void putDouble(int code, double value) override;
  void putChunk(int code, const std::uint8_t* data, std::size_t size) override;

 private:
  // Appends the group code and a number of width bytes as one piece.
  void putNumber(int code, std::uint64_t value, std::size_t width);
};
