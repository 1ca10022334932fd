// One DXF group as read from a file: a group code and a view of its value in the reader's buffer,
// converted to a typed value only when asked.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/OdString.h"
#include "platform/db/OdDbHandle.h"
#include "platform/dxf/DxfGroupCode.h"

class DxfTag {
 public:
  // The form of the file the tag came from. In a binary file strings and handles are text too;
  // numbers and chunks are little-endian bytes decoded on demand.
  enum class FileForm : std::uint8_t { kText, kBinary };

  DxfTag() = default;
  // location: the line of the value in a text file, its byte offset in a binary file.
  DxfTag(int code, std::string_view value, FileForm form, std::size_t location) noexcept
      : DxfTag(code, DxfGroupCode::kindOf(code), value, form, location) {}
  // kind: DxfGroupCode::kindOf(code), when the caller has it already.
  DxfTag(int code, DxfValueKind kind, std::string_view value, FileForm form,
         std::size_t location) noexcept
      : m_value(value), m_location(location), m_code(code), m_kind(kind), m_form(form) {}

  int code() const noexcept { return m_code; }
  DxfValueKind kind() const noexcept { return m_kind; }
  // The value as stored; a view into the reader's buffer, valid while the reader lives.
  std::string_view raw() const noexcept { return m_value; }
  FileForm fileForm() const noexcept { return m_form; }
  // "line 12" or "byte 0x1A2B": where the value is.
  OdString position() const;

  // True when the group code is code and the text value, less trailing blanks, is text: the
  // structure test (0/SECTION, 2/ENTITIES) that must not allocate.
  bool is(int code, std::string_view text) const noexcept;
  // The value as stored less trailing blanks: what is() compares.
  std::string_view bareValue() const noexcept;
  // Raises eBadDxfSequence: "<position>: group code <code> '<value>' met, <what>".
  [[noreturn]] void throwMisplaced(const std::string& what) const;

  // Typed values. A value that does not parse as asked raises OdError(eInvalidDxfCode) naming
  // the position, the group code, the value and what was expected.
  // Text with \U+XXXX escapes (files before 2007) decoded into UTF-8; other bytes kept.
  OdString asString() const;
  std::int16_t asInt16() const;
  std::int32_t asInt32() const;
  std::int64_t asInt64() const;
  double asDouble() const;
  bool asBool() const;
  OdDbHandle asHandle() const;
  // The bytes of a binary chunk, appended so that consecutive chunks join without copies.
  void appendBinary(std::vector<std::uint8_t>& out) const;
  std::vector<std::uint8_t> asBinary() const;

 private:
  bool isText() const noexcept;
  std::int64_t integer(std::int64_t min, std::int64_t max, const char* expected) const;
  [[noreturn]] void fail(const char* expected) const;

  std::string_view m_value;
  std::size_t m_location = 0;
  int m_code = 0;
  DxfValueKind m_kind = DxfValueKind::kString;  // of m_code, looked up once: values are read often
  FileForm m_form = FileForm::kText;
};
