// Tags of a text DXF file: a group-code line, then a value line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/dxf/DxfTagReader.h"

class DxfAsciiTagReader : public DxfTagReader {
 public:
  // Line ends may be LF or CRLF; a UTF-8 byte-order mark is skipped. Files before 2007 may be
  // in a code page: their bytes are kept as they are.
  explicit DxfAsciiTagReader(std::string bytes);

  OdString position() const override;
  bool isBinary() const override { return false; }
  std::size_t size() const override { return m_bytes.size(); }

 protected:
  bool readTag(DxfTag& tag) override;

 private:
  bool nextLine(std::string_view& line);
  bool restIsBlank() const;
  // A group-code line in any form the format allows; false at the blank end of the input.
  bool readCodeLine(int& code);
  int parseCode(std::string_view line) const;

  std::string m_bytes;
  std::size_t m_offset = 0;
  std::size_t m_line = 0;     // lines consumed so far
  std::size_t m_tagLine = 0;  // line of the last group code read
};
