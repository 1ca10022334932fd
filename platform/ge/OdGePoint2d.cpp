// Plane point constants and rotation.
#include "platform/ge/OdGePoint2d.h"

const OdGePoint2d OdGePoint2d::kOrigin(0.0, 0.0);

OdGePoint2d& OdGePoint2d::rotateBy(double angle, const OdGePoint2d& center) {
  return *this = center + (*this - center).rotateBy(angle);
}
