#include "module/utilities/CJbCustBlockValueText.h"

#include <cstdio>

#include "platform/ge/OdGeConstants.h"
#include "platform/host/CJbTranslator.h"
#include "platform/resbuf/OdResBuf.h"

OdString CJbCustBlockValueText::Format(const OdResBuf* value) {
  if (!value) return OdString();
  switch (value->restype()) {
    case OdResBuf::kRtDouble:
      return OdString::format("%g", value->getDouble());
    case OdResBuf::kRtAngle:
      return OdString::format("%g°", value->getDouble() * 180.0 / OdGeConstants::kPi);
    case OdResBuf::kRtString:
      return value->getString();
    case OdResBuf::kRtPoint3d: {
      const OdGePoint3d& point = value->getPoint3d();
      return OdString::format("%g, %g, %g", point.x, point.y, point.z);
    }
    case OdResBuf::kRtInt32:
      return OdString::format("%d", static_cast<int>(value->getInt32()));
    case OdResBuf::kDxfBool:
      return value->getBool() ? odTranslate("customizable_blocks", "Yes")
                              : odTranslate("customizable_blocks", "No");
    default:
      return OdString::format("(%d)", value->restype());
  }
}

OdResBufPtr CJbCustBlockValueText::Parse(const OdString& text, int type) {
  double x = 0.0, y = 0.0, z = 0.0;
  int integer = 0;
  char rest = 0;
  switch (type) {
    case OdResBuf::kRtDouble:
      if (std::sscanf(text.c_str(), "%lf %c", &x, &rest) != 1) return OdResBufPtr();
      return OdResBuf::newRb(type, x);
    case OdResBuf::kRtAngle:
      if (std::sscanf(text.c_str(), "%lf %c", &x, &rest) != 1) return OdResBufPtr();
      return OdResBuf::newRb(type, x * OdGeConstants::kPi / 180.0);
    case OdResBuf::kRtInt32:
      if (std::sscanf(text.c_str(), "%d %c", &integer, &rest) != 1) return OdResBufPtr();
      return OdResBuf::newRb(type, integer);
    case OdResBuf::kRtString:
      return OdResBuf::newRb(type, text);
    case OdResBuf::kRtPoint3d: {
      const int read = std::sscanf(text.c_str(), "%lf,%lf,%lf %c", &x, &y, &z, &rest);
      if (read != 2 && read != 3) return OdResBufPtr();
      return OdResBuf::newRb(type, OdGePoint3d(x, y, z));
    }
    default:
      return OdResBufPtr();
  }
}
