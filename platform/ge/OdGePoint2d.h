// A position in the plane.
#pragma once

#include <cmath>

#include "platform/ge/OdGeTol.h"
#include "platform/ge/OdGeVector2d.h"

class OdGePoint3d;

class OdGePoint2d {
 public:
  constexpr OdGePoint2d() = default;
  constexpr OdGePoint2d(double xx, double yy) : x(xx), y(yy) {}

  static const OdGePoint2d kOrigin;

  OdGePoint2d operator+(const OdGeVector2d& v) const { return {x + v.x, y + v.y}; }
  OdGePoint2d operator-(const OdGeVector2d& v) const { return {x - v.x, y - v.y}; }
  OdGeVector2d operator-(const OdGePoint2d& p) const { return {x - p.x, y - p.y}; }
  OdGePoint2d& operator+=(const OdGeVector2d& v) { return *this = *this + v; }
  OdGePoint2d& operator-=(const OdGeVector2d& v) { return *this = *this - v; }
  // Scaling about the origin, for weighted sums such as midpoints.
  OdGePoint2d operator*(double s) const { return {x * s, y * s}; }
  OdGePoint2d operator/(double s) const { return {x / s, y / s}; }
  OdGePoint2d& set(double xx, double yy) {
    x = xx;
    y = yy;
    return *this;
  }

  double distanceTo(const OdGePoint2d& p) const { return std::hypot(x - p.x, y - p.y); }
  bool isEqualTo(const OdGePoint2d& p, const OdGeTol& tol = OdGeContext::gTol) const {
    return distanceTo(p) <= tol.equalPoint();
  }
  bool operator==(const OdGePoint2d& p) const { return isEqualTo(p); }
  bool operator!=(const OdGePoint2d& p) const { return !isEqualTo(p); }

  OdGeVector2d asVector() const { return {x, y}; }
  inline OdGePoint3d convert3d(double z = 0.0) const;  // defined with OdGePoint3d
  // Rotates counter-clockwise by angle about center.
  OdGePoint2d& rotateBy(double angle, const OdGePoint2d& center = kOrigin);

  double x = 0.0;
  double y = 0.0;
};

inline OdGePoint2d OdGeVector2d::asPoint() const {
  return {x, y};
}
