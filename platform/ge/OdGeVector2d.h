// A direction and length in the plane.
#pragma once

#include <cmath>

#include "platform/ge/OdGeTol.h"

class OdGePoint2d;

class OdGeVector2d {
 public:
  constexpr OdGeVector2d() = default;
  constexpr OdGeVector2d(double xx, double yy) : x(xx), y(yy) {}

  static const OdGeVector2d kIdentity;  // the zero vector
  static const OdGeVector2d kZero;      // the zero vector (same as kIdentity)
  static const OdGeVector2d kXAxis;
  static const OdGeVector2d kYAxis;

  OdGeVector2d operator+(const OdGeVector2d& v) const { return {x + v.x, y + v.y}; }
  OdGeVector2d operator-(const OdGeVector2d& v) const { return {x - v.x, y - v.y}; }
  OdGeVector2d operator-() const { return {-x, -y}; }
  OdGeVector2d operator*(double s) const { return {x * s, y * s}; }
  OdGeVector2d operator/(double s) const { return {x / s, y / s}; }
  friend OdGeVector2d operator*(double s, const OdGeVector2d& v) { return v * s; }
  OdGeVector2d& operator+=(const OdGeVector2d& v) { return *this = *this + v; }
  OdGeVector2d& operator-=(const OdGeVector2d& v) { return *this = *this - v; }
  OdGeVector2d& operator*=(double s) { return *this = *this * s; }
  OdGeVector2d& operator/=(double s) { return *this = *this / s; }
  OdGeVector2d& negate() { return *this = -*this; }
  OdGeVector2d& set(double xx, double yy) {
    x = xx;
    y = yy;
    return *this;
  }

  double length() const { return std::hypot(x, y); }
  double lengthSqrd() const { return x * x + y * y; }
  double dotProduct(const OdGeVector2d& v) const { return x * v.x + y * v.y; }
  // The z component of the 3-D cross product: positive when v is counter-clockwise from this.
  double crossProduct(const OdGeVector2d& v) const { return x * v.y - y * v.x; }
  bool isZeroLength(const OdGeTol& tol = OdGeContext::gTol) const {
    return length() <= tol.equalVector();
  }
  bool isEqualTo(const OdGeVector2d& v, const OdGeTol& tol = OdGeContext::gTol) const {
    return (*this - v).length() <= tol.equalVector();
  }
  bool operator==(const OdGeVector2d& v) const { return isEqualTo(v); }
  bool operator!=(const OdGeVector2d& v) const { return !isEqualTo(v); }

  // The unit vector in this direction; a zero-length vector is returned as it is.
  OdGeVector2d normal(const OdGeTol& tol = OdGeContext::gTol) const {
    const double len = length();
    return len <= tol.equalVector() ? *this : *this / len;
  }
  OdGeVector2d& normalize(const OdGeTol& tol = OdGeContext::gTol) { return *this = normal(tol); }
  // This vector turned a quarter turn counter-clockwise.
  OdGeVector2d perpVector() const { return {-y, x}; }
  inline OdGePoint2d asPoint() const;  // defined with OdGePoint2d

  // The direction angle from the X axis, in [0, 2*pi).
  double angle() const;
  // The unsigned angle to v, in [0, pi]; 0 when either is zero.
  double angleTo(const OdGeVector2d& v) const;
  bool isParallelTo(const OdGeVector2d& v, const OdGeTol& tol = OdGeContext::gTol) const;
  bool isCodirectionalTo(const OdGeVector2d& v, const OdGeTol& tol = OdGeContext::gTol) const;
  bool isPerpendicularTo(const OdGeVector2d& v, const OdGeTol& tol = OdGeContext::gTol) const;
  // Rotates counter-clockwise by angle.
  OdGeVector2d& rotateBy(double angle);
  // Reflects in the line through the origin perpendicular to normal; a zero normal raises
  // eDegenerateGeometry.
  OdGeVector2d& mirror(const OdGeVector2d& normal);

  double x = 0.0;
  double y = 0.0;
};
