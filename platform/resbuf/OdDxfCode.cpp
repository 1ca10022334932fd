// Group-code ranges and their kinds of value.
#include "platform/resbuf/OdDxfCode.h"

#include <algorithm>
#include <iterator>

namespace {
struct CodeRange {
  int first;
  int last;
  OdDxfCode::Type type;
};

// Sorted, non-overlapping ranges; codes between them carry no value.
constexpr CodeRange kRanges[] = {
    {-5, -5, OdDxfCode::ObjectId},  // persistent reactor
    {-4, -4, OdDxfCode::String},    // conditional operator of a selection filter
    {-2, -1, OdDxfCode::ObjectId},  // entity name and entity name reference
    {0, 9, OdDxfCode::String},
    {10, 18, OdDxfCode::Point},
    {19, 59, OdDxfCode::Double},  // Y and Z of points, elevation, thickness, reals
    {60, 79, OdDxfCode::Integer16},
    {90, 99, OdDxfCode::Integer32},
    {100, 102, OdDxfCode::String},
    {105, 105, OdDxfCode::Handle},
    {110, 112, OdDxfCode::Point},
    {113, 149, OdDxfCode::Double},
    {160, 169, OdDxfCode::Integer64},
    {170, 179, OdDxfCode::Integer16},
    {210, 210, OdDxfCode::Point},
    {211, 239, OdDxfCode::Double},
    {270, 289, OdDxfCode::Integer16},
    {290, 299, OdDxfCode::Bool},
    {300, 309, OdDxfCode::String},
    {310, 319, OdDxfCode::BinaryChunk},
    {320, 329, OdDxfCode::Handle},
    {330, 339, OdDxfCode::SoftPointerId},
    {340, 349, OdDxfCode::HardPointerId},
    {350, 359, OdDxfCode::SoftOwnershipId},
    {360, 369, OdDxfCode::HardOwnershipId},
    {370, 389, OdDxfCode::Integer16},
    {390, 399, OdDxfCode::Handle},
    {400, 409, OdDxfCode::Integer16},
    {410, 419, OdDxfCode::String},
    {420, 429, OdDxfCode::Integer32},
    {430, 439, OdDxfCode::String},
    {440, 459, OdDxfCode::Integer32},
    {460, 469, OdDxfCode::Double},
    {470, 479, OdDxfCode::String},
    {480, 481, OdDxfCode::Handle},
    {999, 1003, OdDxfCode::String},  // comment, string, application name, control string, layer
    {1004, 1004, OdDxfCode::BinaryChunk},
    {1005, 1005, OdDxfCode::Handle},
    {1006, 1009, OdDxfCode::String},
    {1010, 1013, OdDxfCode::Point},
    {1014, 1059, OdDxfCode::Double},
    {1060, 1070, OdDxfCode::Integer16},
    {1071, 1071, OdDxfCode::Integer32},
    {5001, 5001, OdDxfCode::Double},
    {5002, 5002, OdDxfCode::Point},
    {5003, 5003, OdDxfCode::Integer16},
    {5004, 5004, OdDxfCode::Double},
    {5005, 5005, OdDxfCode::String},
    {5006, 5006, OdDxfCode::ObjectId},
    {5008, 5008, OdDxfCode::Double},
    {5009, 5009, OdDxfCode::Point},
    {5010, 5010, OdDxfCode::Integer32},
};

constexpr bool rangesAreSorted() {
  for (std::size_t i = 1; i < std::size(kRanges); ++i) {
    if (kRanges[i].first <= kRanges[i - 1].last || kRanges[i].first > kRanges[i].last) return false;
  }
  return true;
}
static_assert(rangesAreSorted(), "code ranges must be sorted and disjoint");
}  // namespace

OdDxfCode::Type OdDxfCode::_getType(int code) noexcept {
  // The first range that ends at or after code; code belongs to it when it starts at or before.
  const auto* it = std::lower_bound(std::begin(kRanges), std::end(kRanges), code,
                                    [](const CodeRange& r, int c) { return r.last < c; });
  if (it == std::end(kRanges) || it->first > code) return Unknown;
  return it->type;
}

const char* OdDxfCode::typeName(Type type) noexcept {
  switch (type) {
    case Unknown:
      return "no value";
    case String:
      return "string";
    case Bool:
      return "boolean";
    case Integer16:
      return "16-bit integer";
    case Integer32:
      return "32-bit integer";
    case Integer64:
      return "64-bit integer";
    case Double:
      return "real";
    case Point:
      return "3-D point";
    case BinaryChunk:
      return "binary chunk";
    case Handle:
      return "handle";
    case ObjectId:
    case SoftPointerId:
    case HardPointerId:
    case SoftOwnershipId:
    case HardOwnershipId:
      return "object id";
  }
  return "no value";
}
