// Writes text DXF: group codes right-aligned in three columns, integers right-aligned at the
// widths mainstream files use, doubles in their shortest form that reads back bit for bit.
#pragma once

#include "platform/dxf/DxfTagWriter.h"

class DxfAsciiTagWriter : public DxfTagWriter {
 public:
  // CRLF by default: it is what the dominant producer of DXF files writes, so every reader that
  // handles real-world files accepts it, while some line-based readers mishandle bare LF.
  enum class LineEnd { kCrLf, kLf };
  explicit DxfAsciiTagWriter(LineEnd lineEnd = LineEnd::kCrLf);

 protected:
  void putText(int code, std::string_view text) override;
  void putInteger(int code, DxfValueKind kind, std::int64_t value) override;
  void putDouble(int code, double value) override;
  void putChunk(int code, const std::uint8_t* data, std::size_t size) override;

 private:
  static constexpr std::size_t kLongestCode = 6;  // "1071\r\n"
  // Write the code line, or the line end, at out; return the end.
  char* putCode(char* out, int code) const;
  char* endLine(char* out) const {
    if (m_crlf) *out++ = '\r';
    *out++ = '\n';
    return out;
  }

  bool m_crlf;
};
