// What kind of value a DXF group code carries in a file, derived from the one code table
// (OdDxfCode) that result buffers use too.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

enum class DxfValueKind : std::uint8_t {
  kInvalid,  // not a group code that may appear in a DXF file
  kString,   // text; also the 999 comment
  kDouble,   // coordinates, distances, angles, scales
  kInt16,
  kInt32,
  kInt64,
  kBool,    // written as an integer in text files, one byte in binary files
  kHandle,  // hexadecimal text in both forms
  kBinary,  // hexadecimal text in text files, length-prefixed bytes in binary files
};

class DxfGroupCode {
 public:
  // Codes 0-1071 cover every code a file may hold; others are in-memory result types only.
  static constexpr int kLastFileCode = 1071;
  using KindTable = std::array<DxfValueKind, kLastFileCode + 1>;

  // The value kind of a group code; kInvalid for codes outside the DXF ranges. Inline: every tag
  // read or written asks, often more than once.
  static DxfValueKind kindOf(int code) noexcept {
    static const KindTable kTable = buildKindTable();
    if (code < 0 || code > kLastFileCode) return DxfValueKind::kInvalid;
    return kTable[static_cast<std::size_t>(code)];
  }
  // "a double", "a 16-bit integer", ...: for messages that say what was expected.
  static const char* kindName(DxfValueKind kind) noexcept;

 private:
  static KindTable buildKindTable() noexcept;
};
