// Writes DXF tags into a byte buffer that the file layer saves; the group code decides how a value
// is stored, whatever C++ type it was passed as.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "platform/db/OdDbHandle.h"
#include "platform/dxf/DxfGroupCode.h"

class DxfTag;

class DxfTagWriter {
 public:
  virtual ~DxfTagWriter() = default;
  DxfTagWriter(const DxfTagWriter&) = delete;
  DxfTagWriter& operator=(const DxfTagWriter&) = delete;

  // A value that does not suit its group code raises OdError(eInvalidDxfCode); a value the file
  // cannot hold (a zero byte in text, a line break in text of a text file, a number out of
  // range, a non-finite double) raises OdError(eInvalidInput). Nothing is written then.
  void write(int code, std::string_view text);  // text codes, and handle codes given as hex
  void write(int code, const char* text) { write(code, std::string_view(text)); }
  // Integers suit integer, boolean and double codes; they are stored at the code's width.
  void write(int code, std::int16_t value) { writeInteger(code, value); }
  void write(int code, std::int32_t value) { writeInteger(code, value); }
  void write(int code, std::int64_t value) { writeInteger(code, value); }
  void write(int code, bool value) { writeInteger(code, value ? 1 : 0); }
  void write(int code, double value);
  void write(int code, const OdDbHandle& handle);
  // Binary data under a 310-range or 1004 code, split into chunks of at most 127 bytes.
  void writeBinary(int code, const std::uint8_t* data, std::size_t size);
  // A point from the code of its x (10-18, 110-112, 210, 1010-1013): x, then y at code + 10,
  // then z at code + 20.
  void writePoint(int code, double x, double y);
  void writePoint(int code, double x, double y, double z);
  // Copies a tag read from a file of either form; text is kept byte for byte.
  void writeTag(const DxfTag& tag);

  // True when text holds a line break, which a value line of a text file cannot hold. One pass
  // over the text: values are short and checked once per tag.
  static bool hasLineBreak(std::string_view text) noexcept {
    for (char c : text)
      if (c == '\n' || c == '\r') return true;
    return false;
  }

  // The bytes written so far; the room beyond them is given up.
  const std::string& data() {
    m_data.resize(m_size);
    return m_data;
  }
  std::string takeData() {
    m_data.resize(m_size);
    m_size = 0;
    return std::move(m_data);
  }
  // Room for bytes more, so that a large file is not copied as it grows.
  void reserve(std::size_t bytes) {
    if (m_size + bytes > m_data.size()) m_data.resize(m_size + bytes);
  }

 protected:
  DxfTagWriter() = default;

  virtual void putText(int code, std::string_view text) = 0;
  virtual void putInteger(int code, DxfValueKind kind, std::int64_t value) = 0;
  virtual void putDouble(int code, double value) = 0;
  virtual void putChunk(int code, const std::uint8_t* data, std::size_t size) = 0;

  // At least bytes writable at the end of the data; put() then marks where the writing ended.
  // Tags are laid out in place: a string append a piece costs more than formatting most values.
  char* room(std::size_t bytes) {
    if (m_size + bytes > m_data.size()) m_data.resize(std::max(m_size + bytes, 2 * m_data.size()));
    return m_data.data() + m_size;
  }
  void put(const char* end) noexcept { m_size = static_cast<std::size_t>(end - m_data.data()); }
  void put(std::string_view bytes) {
    char* out = room(bytes.size());
    // An empty view may have no data at all, which memcpy must not be given.
    if (!bytes.empty()) std::memcpy(out, bytes.data(), bytes.size());
    put(out + bytes.size());
  }

 private:
  std::string m_data;  // its size is the room; m_size bytes are written
  std::size_t m_size = 0;

  void writeInteger(int code, std::int64_t value);
  void checkPoint(int code) const;

  std::vector<std::uint8_t> m_chunk;  // reused by writeTag for binary chunks
};
