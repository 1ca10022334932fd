// An unbounded plane in space: a point on it and a unit normal.
#pragma once

#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeTol.h"
#include "platform/ge/OdGeVector3d.h"

class OdGeMatrix3d;

class OdGePlane {
 public:
  // The XY plane through the origin.
  constexpr OdGePlane() = default;
  // A zero normal raises eDegenerateGeometry.
  OdGePlane(const OdGePoint3d& origin, const OdGeVector3d& normal);
  // The plane through three points, normal (b - a) x (c - a); collinear points raise
  // eDegenerateGeometry.
  OdGePlane(const OdGePoint3d& a, const OdGePoint3d& b, const OdGePoint3d& c);

  static const OdGePlane kXYPlane;
  static const OdGePlane kYZPlane;
  static const OdGePlane kZXPlane;

  const OdGeVector3d& normal() const { return m_normal; }
  const OdGePoint3d& pointOnPlane() const { return m_origin; }
  OdGePlane& set(const OdGePoint3d& origin, const OdGeVector3d& normal);

  // Positive on the side the normal points to.
  double signedDistanceTo(const OdGePoint3d& p) const {
    return (p - m_origin).dotProduct(m_normal);
  }
  double distanceTo(const OdGePoint3d& p) const;
  bool isOn(const OdGePoint3d& p, const OdGeTol& tol = OdGeContext::gTol) const {
    return distanceTo(p) <= tol.equalPoint();
  }
  // The orthogonal projection of p onto the plane.
  OdGePoint3d closestPointTo(const OdGePoint3d& p) const {
    return p - m_normal * signedDistanceTo(p);
  }
  // Moves the plane with matrix; a matrix that flattens the plane raises eDegenerateGeometry.
  OdGePlane& transformBy(const OdGeMatrix3d& matrix);

 private:
  constexpr OdGePlane(const OdGeVector3d& unitNormal, bool) : m_normal(unitNormal) {}

  OdGePoint3d m_origin;
  OdGeVector3d m_normal{0.0, 0.0, 1.0};
};
