// The byte order of the machine, for code that reads little-endian data in place instead of byte
// by byte.
#pragma once

namespace OdByteOrder {
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
constexpr bool kLittleEndianHost = true;
#else
constexpr bool kLittleEndianHost = false;
#endif
}  // namespace OdByteOrder
