// Group-code kinds of the DXF format, derived from the result-buffer code table so that a code can
// never mean one thing in memory and another in a file.
#include "platform/dxf/DxfGroupCode.h"

#include "platform/resbuf/OdDxfCode.h"

namespace {
DxfValueKind fileKind(int code) {
  switch (OdDxfCode::_getType(code)) {
    case OdDxfCode::String:
      return DxfValueKind::kString;
    case OdDxfCode::Bool:
      return DxfValueKind::kBool;
    case OdDxfCode::Integer16:
      return DxfValueKind::kInt16;
    case OdDxfCode::Integer32:
      return DxfValueKind::kInt32;
    case OdDxfCode::Integer64:
      return DxfValueKind::kInt64;
    case OdDxfCode::Double:
    case OdDxfCode::Point:  // each coordinate is a double tag of its own in a file
      return DxfValueKind::kDouble;
    case OdDxfCode::BinaryChunk:
      return DxfValueKind::kBinary;
    case OdDxfCode::Handle:
    case OdDxfCode::ObjectId:
    case OdDxfCode::SoftPointerId:
    case OdDxfCode::HardPointerId:
    case OdDxfCode::SoftOwnershipId:
    case OdDxfCode::HardOwnershipId:
      return DxfValueKind::kHandle;
    case OdDxfCode::Unknown:
      break;
  }
  return DxfValueKind::kInvalid;
}

}  // namespace

DxfGroupCode::KindTable DxfGroupCode::buildKindTable() noexcept {
  KindTable table{};
  for (int code = 0; code <= kLastFileCode; ++code)
    table[static_cast<std::size_t>(code)] = fileKind(code);
  return table;
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
