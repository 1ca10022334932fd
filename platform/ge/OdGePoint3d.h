// A position in space.
#pragma once

#include <cmath>

#include "platform/base/OdArray.h"
#include "platform/ge/OdGePoint2d.h"
#include "platform/ge/OdGeTol.h"
#include "platform/ge/OdGeVector3d.h"

class OdGeMatrix3d;

class OdGePoint3d {
 public:
  constexpr OdGePoint3d() = default;
  constexpr OdGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

  static const OdGePoint3d kOrigin;

  OdGePoint3d operator+(const OdGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
  OdGePoint3d operator-(const OdGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
  OdGeVector3d operator-(const OdGePoint3d& p) const { return {x - p.x, y - p.y, z - p.z}; }
  OdGePoint3d& operator+=(const OdGeVector3d& v) { return *this = *this + v; }
  OdGePoint3d& operator-=(const OdGeVector3d& v) { return *this = *this - v; }
  // Scaling about the origin, for weighted sums such as midpoints.
  OdGePoint3d operator*(double s) const { return {x * s, y * s, z * s}; }
  OdGePoint3d operator/(double s) const { return {x / s, y / s, z / s}; }
  OdGePoint3d& set(double xx, double yy, double zz) {
    x = xx;
    y = yy;
    z = zz;
    return *this;
  }

  double distanceTo(const OdGePoint3d& p) const { return (*this - p).length(); }
  bool isEqualTo(const OdGePoint3d& p, const OdGeTol& tol = OdGeContext::gTol) const {
    return distanceTo(p) <= tol.equalPoint();
  }
  bool operator==(const OdGePoint3d& p) const { return isEqualTo(p); }
  bool operator!=(const OdGePoint3d& p) const { return !isEqualTo(p); }

  OdGeVector3d asVector() const { return {x, y, z}; }
  OdGePoint2d convert2d() const { return {x, y}; }

  OdGePoint3d& transformBy(const OdGeMatrix3d& matrix);
  OdGePoint3d& setToProduct(const OdGeMatrix3d& matrix, const OdGePoint3d& p);
  // Rotates by angle counter-clockwise about the axis through center (right-hand rule).
  OdGePoint3d& rotateBy(double angle, const OdGeVector3d& axis,
                        const OdGePoint3d& center = kOrigin);
  OdGePoint3d& scaleBy(double factor, const OdGePoint3d& center = kOrigin) {
    return *this = center + (*this - center) * factor;
  }

  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};

inline OdGePoint3d OdGeVector3d::asPoint() const {
  return {x, y, z};
}
inline OdGePoint3d OdGePoint2d::convert3d(double z) const {
  return {x, y, z};
}

using OdGePoint3dArray = OdArray<OdGePoint3d>;
