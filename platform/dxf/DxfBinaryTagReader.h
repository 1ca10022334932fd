// Tags of a binary DXF file: after the sentinel, a little-endian group code and its value.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/dxf/DxfTagReader.h"

class DxfBinaryTagReader : public DxfTagReader {
 public:
  // The 22 bytes every binary DXF file opens with.
  static std::string_view sentinel() noexcept;
  static bool hasSentinel(std::string_view bytes) noexcept;

  // bytes must open with the sentinel. Group codes are two bytes from R13 on and one byte
  // before (255 then announcing a two-byte code). The first tag of every file is 0/SECTION, so
  // the form shows in the byte after the first code: zero for two-byte codes, the 'S' of the
  // text for one-byte codes.
  explicit DxfBinaryTagReader(std::string bytes);

  OdString position() const override;
  bool isBinary() const override { return true; }
  std::size_t size() const override { return m_bytes.size(); }
  bool hasOneByteCodes() const noexcept { return m_oneByteCodes; }

 protected:
  bool readTag(DxfTag& tag) override;

 private:
  [[noreturn]] void truncated(std::size_t at, const std::string& expected) const;

  std::string m_bytes;
  std::size_t m_offset = 0;
  std::size_t m_tagOffset = 0;  // where the last group code read starts
  bool m_oneByteCodes = false;
};
