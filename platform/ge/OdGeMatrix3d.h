// A 4x4 transformation of space, row-major, applied to column vectors (p' = M * p): the linear
// part is entry[0..2][0..2], the translation entry[0..2][3].
#pragma once

#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeScale3d.h"
#include "platform/ge/OdGeTol.h"
#include "platform/ge/OdGeVector3d.h"

class OdGePlane;

class OdGeMatrix3d {
 public:
  constexpr OdGeMatrix3d()
      : entry{{1.0, 0.0, 0.0, 0.0},
              {0.0, 1.0, 0.0, 0.0},
              {0.0, 0.0, 1.0, 0.0},
              {0.0, 0.0, 0.0, 1.0}} {}

  static const OdGeMatrix3d kIdentity;

  double* operator[](int row) { return entry[row]; }
  const double* operator[](int row) const { return entry[row]; }
  double operator()(int row, int column) const { return entry[row][column]; }
  double& operator()(int row, int column) { return entry[row][column]; }

  OdGeMatrix3d& setToIdentity() { return *this = OdGeMatrix3d(); }
  // The product this * m: applying it applies m first, then this.
  OdGeMatrix3d operator*(const OdGeMatrix3d& m) const;
  OdGeMatrix3d& operator*=(const OdGeMatrix3d& m) { return *this = *this * m; }
  // this = left * this (left applies after this).
  OdGeMatrix3d& preMultBy(const OdGeMatrix3d& left) { return *this = left * *this; }
  // this = this * right (right applies before this).
  OdGeMatrix3d& postMultBy(const OdGeMatrix3d& right) { return *this = *this * right; }
  OdGeMatrix3d& setToProduct(const OdGeMatrix3d& a, const OdGeMatrix3d& b) { return *this = a * b; }

  double det() const;
  // True when the transformation collapses space: the volume scale factor is below tol relative
  // to the lengths of the axes, so the test does not depend on the overall scale.
  bool isSingular(const OdGeTol& tol = OdGeContext::gTol) const;
  // The inverse transformation; a singular matrix raises eDegenerateGeometry.
  OdGeMatrix3d inverse(const OdGeTol& tol = OdGeContext::gTol) const;
  OdGeMatrix3d& invert(const OdGeTol& tol = OdGeContext::gTol) { return *this = inverse(tol); }
  OdGeMatrix3d transpose() const;
  OdGeMatrix3d& transposeIt() { return *this = transpose(); }

  bool isEqualTo(const OdGeMatrix3d& m, const OdGeTol& tol = OdGeContext::gTol) const;
  bool operator==(const OdGeMatrix3d& m) const { return isEqualTo(m); }
  bool operator!=(const OdGeMatrix3d& m) const { return !isEqualTo(m); }
  // Axes mutually perpendicular and of one common, non-zero length: a rigid motion with a
  // uniform scale, possibly mirrored. Such a matrix keeps circles circles.
  bool isUniScaledOrtho(const OdGeTol& tol = OdGeContext::gTol) const;
  // Axes mutually perpendicular and non-zero, lengths free.
  bool isScaledOrtho(const OdGeTol& tol = OdGeContext::gTol) const;
  // True when the transformation reverses orientation (a mirror image).
  bool isMirroring() const { return det() < 0.0; }
  // The largest factor by which the transformation stretches an axis.
  double scale() const;
  OdGeVector3d translation() const { return {entry[0][3], entry[1][3], entry[2][3]}; }
  OdGeMatrix3d& setTranslation(const OdGeVector3d& v);

  // The matrix that maps the world axes onto the given system: columns x, y, z and origin.
  OdGeMatrix3d& setCoordSystem(const OdGePoint3d& origin, const OdGeVector3d& xAxis,
                               const OdGeVector3d& yAxis, const OdGeVector3d& zAxis);
  void getCoordSystem(OdGePoint3d& origin, OdGeVector3d& xAxis, OdGeVector3d& yAxis,
                      OdGeVector3d& zAxis) const;
  OdGePoint3d getCsOrigin() const { return {entry[0][3], entry[1][3], entry[2][3]}; }
  OdGeVector3d getCsXAxis() const { return {entry[0][0], entry[1][0], entry[2][0]}; }
  OdGeVector3d getCsYAxis() const { return {entry[0][1], entry[1][1], entry[2][1]}; }
  OdGeVector3d getCsZAxis() const { return {entry[0][2], entry[1][2], entry[2][2]}; }

  static OdGeMatrix3d translation(const OdGeVector3d& v);
  // Counter-clockwise about the axis through center (right-hand rule); a zero axis raises
  // eDegenerateGeometry.
  static OdGeMatrix3d rotation(double angle, const OdGeVector3d& axis,
                               const OdGePoint3d& center = OdGePoint3d::kOrigin);
  static OdGeMatrix3d scaling(double factor, const OdGePoint3d& center = OdGePoint3d::kOrigin);
  static OdGeMatrix3d scaling(const OdGeScale3d& factors,
                              const OdGePoint3d& center = OdGePoint3d::kOrigin);
  // Reflection in a plane.
  static OdGeMatrix3d mirroring(const OdGePlane& plane);
  // Reflection through a point (a half turn in every plane through it).
  static OdGeMatrix3d mirroring(const OdGePoint3d& center);
  // The object coordinate system of a planar entity with this normal, by the arbitrary-axis rule
  // of drawing files: maps object coordinates to world coordinates. A zero normal raises
  // eDegenerateGeometry.
  static OdGeMatrix3d planeToWorld(const OdGeVector3d& normal);
  // The inverse of planeToWorld(normal).
  static OdGeMatrix3d worldToPlane(const OdGeVector3d& normal);
  // Maps the "from" system onto the "to" system; a degenerate "from" system raises
  // eDegenerateGeometry.
  static OdGeMatrix3d alignCoordSys(const OdGePoint3d& fromOrigin, const OdGeVector3d& fromXAxis,
                                    const OdGeVector3d& fromYAxis, const OdGeVector3d& fromZAxis,
                                    const OdGePoint3d& toOrigin, const OdGeVector3d& toXAxis,
                                    const OdGeVector3d& toYAxis, const OdGeVector3d& toZAxis);

  double entry[4][4];

 private:
  bool isAffine() const {
    return entry[3][0] == 0.0 && entry[3][1] == 0.0 && entry[3][2] == 0.0 && entry[3][3] == 1.0;
  }
  bool axesOrthogonal(const OdGeTol& tol, double lengths[3]) const;
};

inline OdGePoint3d operator*(const OdGeMatrix3d& m, const OdGePoint3d& p) {
  return OdGePoint3d().setToProduct(m, p);
}
inline OdGeVector3d operator*(const OdGeMatrix3d& m, const OdGeVector3d& v) {
  return OdGeVector3d().setToProduct(m, v);
}
