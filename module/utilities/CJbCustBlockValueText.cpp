#include "module/utilities/CJbCustBlockValueText.h"

#include <cmath>

#include "platform/host/CJbTranslator.h"
#include "platform/resbuf/OdResBuf.h"

OdString CJbCustBlockValueText::Format(const OdResBuf* value) {
  if (!value) return OdString();
  switch (value->restype()) {
    case OdResBuf::kRtDouble:
      return OdString::format("%g", value->getDouble());
    case OdResBuf::kRtAngle:
      return OdString::format("%g°", value->getDouble() * 180.0 / M_PI);
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
