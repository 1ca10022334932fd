// Group-code ranges of the DXF format.
#include "platform/dxf/DxfGroupCode.h"

DxfValueKind DxfGroupCode::kindOf(int code) noexcept {
  using K = DxfValueKind;
  if (code < 0) return K::kInvalid;
  if (code <= 9) return K::kString;
  if (code <= 59) return K::kDouble;  // 10-39 coordinates, 40-59 scalars
  if (code <= 79) return K::kInt16;
  if (code <= 89) return K::kInvalid;
  if (code <= 99) return K::kInt32;
  if (code <= 102) return K::kString;  // subclass markers, embedded objects, control strings
  if (code == 105) return K::kHandle;
  if (code <= 109) return K::kInvalid;
  if (code <= 149) return K::kDouble;
  if (code <= 159) return K::kInvalid;
  if (code <= 169) return K::kInt64;
  if (code <= 179) return K::kInt16;
  if (code <= 209) return K::kInvalid;
  if (code <= 239) return K::kDouble;
  if (code <= 269) return K::kInvalid;
  if (code <= 289) return K::kInt16;
  if (code <= 299) return K::kBool;
  if (code <= 309) return K::kString;
  if (code <= 319) return K::kBinary;
  if (code <= 369) return K::kHandle;  // 320-329 handles, 330-369 object ids
  if (code <= 389) return K::kInt16;   // lineweights, plot-style kinds
  if (code <= 399) return K::kHandle;
  if (code <= 409) return K::kInt16;
  if (code <= 419) return K::kString;
  if (code <= 429) return K::kInt32;  // true colours
  if (code <= 439) return K::kString;
  if (code <= 459) return K::kInt32;
  if (code <= 469) return K::kDouble;
  if (code <= 479) return K::kString;
  if (code <= 481) return K::kHandle;
  if (code == 999) return K::kString;
  if (code < 1000) return K::kInvalid;
  if (code == 1004) return K::kBinary;
  if (code == 1005) return K::kHandle;
  if (code <= 1009) return K::kString;
  if (code <= 1059) return K::kDouble;
  if (code <= 1070) return K::kInt16;
  if (code == 1071) return K::kInt32;
  return K::kInvalid;
}

const char* DxfGroupCode::kindName(DxfValueKind kind) noexcept {
  switch (kind) {
    case DxfValueKind::kString:
      return "text";
    case DxfValueKind::kDouble:
      return "a double";
    case DxfValueKind::kInt16:
      return "a 16-bit integer";
    case DxfValueKind::kInt32:
      return "a 32-bit integer";
    case DxfValueKind::kInt64:
      return "a 64-bit integer";
    case DxfValueKind::kBool:
      return "a boolean";
    case DxfValueKind::kHandle:
      return "a hexadecimal handle";
    case DxfValueKind::kBinary:
      return "hexadecimal binary data";
    case DxfValueKind::kInvalid:
      break;
  }
  return "no value (not a DXF group code)";
}
