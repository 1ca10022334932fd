// A direction and length in space.
#pragma once

#include <cmath>

#include "platform/ge/OdGeTol.h"
#include "platform/ge/OdGeVector2d.h"

class OdGeMatrix3d;
class OdGePoint3d;

class OdGeVector3d {
 public:
  constexpr OdGeVector3d() = default;
  constexpr OdGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

  static const OdGeVector3d kIdentity;  // the zero vector
  static const OdGeVector3d kZero;      // the zero vector (same as kIdentity)
  static const OdGeVector3d kXAxis;
  static const OdGeVector3d kYAxis;
  static const OdGeVector3d kZAxis;

  OdGeVector3d operator+(const OdGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
  OdGeVector3d operator-(const OdGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
  OdGeVector3d operator-() const { return {-x, -y, -z}; }
  OdGeVector3d operator*(double s) const { return {x * s, y * s, z * s}; }
  OdGeVector3d operator/(double s) const { return {x / s, y / s, z / s}; }
  friend OdGeVector3d operator*(double s, const OdGeVector3d& v) { return v * s; }
  OdGeVector3d& operator+=(const OdGeVector3d& v) { return *this = *this + v; }
  OdGeVector3d& operator-=(const OdGeVector3d& v) { return *this = *this - v; }
  OdGeVector3d& operator*=(double s) { return *this = *this * s; }
  OdGeVector3d& operator/=(double s) { return *this = *this / s; }
  OdGeVector3d& negate() { return *this = -*this; }
  OdGeVector3d& set(double xx, double yy, double zz) {
    x = xx;
    y = yy;
    z = zz;
    return *this;
  }

  double length() const { return std::sqrt(lengthSqrd()); }
  double lengthSqrd() const { return x * x + y * y + z * z; }
  double dotProduct(const OdGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
  OdGeVector3d crossProduct(const OdGeVector3d& v) const {
    return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
  }
  bool isZeroLength(const OdGeTol& tol = OdGeContext::gTol) const {
    return length() <= tol.equalVector();
  }
  bool isEqualTo(const OdGeVector3d& v, const OdGeTol& tol = OdGeContext::gTol) const {
    return (*this - v).length() <= tol.equalVector();
  }
  bool operator==(const OdGeVector3d& v) const { return isEqualTo(v); }
  bool operator!=(const OdGeVector3d& v) const { return !isEqualTo(v); }

  // The unit vector in this direction; a zero-length vector is returned as it is.
  OdGeVector3d normal(const OdGeTol& tol = OdGeContext::gTol) const {
    const double len = length();
    return len <= tol.equalVector() ? *this : *this / len;
  }
  OdGeVector3d& normalize(const OdGeTol& tol = OdGeContext::gTol) { return *this = normal(tol); }
  OdGeVector2d convert2d() const { return {x, y}; }
  inline OdGePoint3d asPoint() const;  // defined with OdGePoint3d

  // The unsigned angle to v, in [0, pi]; 0 when either is zero.
  double angleTo(const OdGeVector3d& v) const;
  // The angle from this to v turning counter-clockwise about reference, in [0, 2*pi).
  double angleTo(const OdGeVector3d& v, const OdGeVector3d& reference) const;
  bool isParallelTo(const OdGeVector3d& v, const OdGeTol& tol = OdGeContext::gTol) const;
  bool isCodirectionalTo(const OdGeVector3d& v, const OdGeTol& tol = OdGeContext::gTol) const;
  bool isPerpendicularTo(const OdGeVector3d& v, const OdGeTol& tol = OdGeContext::gTol) const;
  // A vector perpendicular to this one, chosen the way object coordinate systems choose their
  // X axis (so it is stable for a given direction); zero for the zero vector.
  OdGeVector3d perpVector() const;
  // Rotates by angle counter-clockwise about axis (right-hand rule); a zero axis raises
  // eDegenerateGeometry.
  OdGeVector3d& rotateBy(double angle, const OdGeVector3d& axis);
  // Reflects in the plane through the origin perpendicular to normal; a zero normal raises
  // eDegenerateGeometry.
  OdGeVector3d& mirror(const OdGeVector3d& normal);
  // Applies the linear part of matrix (vectors do not translate).
  OdGeVector3d& transformBy(const OdGeMatrix3d& matrix);
  OdGeVector3d& setToProduct(const OdGeMatrix3d& matrix, const OdGeVector3d& v);
  OdGeVector3d& setToProduct(const OdGeVector3d& v, double s) { return *this = v * s; }

  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};
