// Instance chains as fuzz input bytes: per item a kind byte and its value, an integer (4 bytes),
// a real (8), a flag (1), a point (3 reals) or a string (a length byte, then the text). The kind
// byte modulo kKinds is the value type; divided by kKinds it picks the group code among those
// instance chains use for that type.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/resbuf/OdResBuf.h"

class InstanceChainCoding {
 public:
  enum Kind { kInteger, kReal, kFlag, kPoint, kString, kKinds };

  static const std::vector<std::vector<int>>& codes() {
    static const std::vector<std::vector<int>> table = {
        {OdResBuf::kRtInt32, OdResBuf::kRtInt16, 70, 90},
        {OdResBuf::kRtDouble, OdResBuf::kRtAngle, 40},
        {OdResBuf::kDxfBool},
        {OdResBuf::kRtPoint3d, OdResBuf::kRtPoint2d, 10},
        {OdResBuf::kRtString, 1},
    };
    return table;
  }

  // The bytes of a chain; items of other group codes are left out.
  static std::string encode(const OdResBuf* chain) {
    std::string bytes;
    for (const OdResBuf* item = chain; item; item = item->next().get()) {
      for (int kind = 0; kind < kKinds; ++kind) {
        const std::vector<int>& list = codes()[static_cast<std::size_t>(kind)];
        for (std::size_t index = 0; index < list.size(); ++index)
          if (list[index] == item->restype()) append(bytes, kind, index, item);
      }
    }
    return bytes;
  }

 private:
  template <typename T>
  static void put(std::string& bytes, const T& value) {
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
  }

  static void append(std::string& bytes, int kind, std::size_t index, const OdResBuf* item) {
    bytes += static_cast<char>(kind + kKinds * static_cast<int>(index));
    switch (kind) {
      case kInteger:
        put(bytes, item->restype() == OdResBuf::kRtInt16 || item->restype() == 70
                       ? std::int32_t{item->getInt16()}
                       : item->getInt32());
        break;
      case kReal:
        put(bytes, item->getDouble());
        break;
      case kFlag:
        bytes += static_cast<char>(item->getBool() ? 1 : 0);
        break;
      case kPoint: {
        const OdGePoint3d point = item->getPoint3d();
        put(bytes, point.x);
        put(bytes, point.y);
        put(bytes, point.z);
        break;
      }
      default: {
        const std::string text = item->getString().str().substr(0, 255);
        bytes += static_cast<char>(text.size());
        bytes += text;
      }
    }
  }
};
