// Planes: construction from points or a normal, distances and transformation.
#include "platform/ge/OdGePlane.h"

#include <cmath>

#include "platform/base/OdError.h"
#include "platform/ge/OdGeMatrix3d.h"

const OdGePlane OdGePlane::kXYPlane(OdGeVector3d(0.0, 0.0, 1.0), true);
const OdGePlane OdGePlane::kYZPlane(OdGeVector3d(1.0, 0.0, 0.0), true);
const OdGePlane OdGePlane::kZXPlane(OdGeVector3d(0.0, 1.0, 0.0), true);

OdGePlane::OdGePlane(const OdGePoint3d& origin, const OdGeVector3d& normal) {
  set(origin, normal);
}

OdGePlane::OdGePlane(const OdGePoint3d& a, const OdGePoint3d& b, const OdGePoint3d& c) {
  const OdGeVector3d ab = b - a;
  const OdGeVector3d ac = c - a;
  const OdGeVector3d n = ab.crossProduct(ac);
  // Collinear when the parallelogram is thin compared with its sides.
  if (!(n.length() > OdGeContext::gTol.equalVector() * ab.length() * ac.length())) {
    throw OdError(eDegenerateGeometry, "OdGePlane: the three points are collinear");
  }
  set(a, n);
}

OdGePlane& OdGePlane::set(const OdGePoint3d& origin, const OdGeVector3d& normal) {
  const double len = normal.length();
  if (len == 0.0 || !std::isfinite(len)) {
    throw OdError(eDegenerateGeometry, "OdGePlane: the normal has no direction");
  }
  m_origin = origin;
  m_normal = normal / len;
  return *this;
}

double OdGePlane::distanceTo(const OdGePoint3d& p) const {
  return std::fabs(signedDistanceTo(p));
}

OdGePlane& OdGePlane::transformBy(const OdGeMatrix3d& matrix) {
  // Normals do not transform like vectors under non-uniform scales: carry two in-plane
  // directions across instead and rebuild the normal from them, keeping points that were on
  // the positive side on the positive side (a mirror would otherwise flip it).
  const OdGeVector3d inPlaneX = m_normal.perpVector().normal();
  const OdGeVector3d u = matrix * inPlaneX;
  const OdGeVector3d v = matrix * m_normal.crossProduct(inPlaneX);
  OdGeVector3d n = u.crossProduct(v);
  if (!(n.length() > OdGeContext::gTol.equalVector() * u.length() * v.length())) {
    throw OdError(eDegenerateGeometry, "OdGePlane::transformBy: the matrix flattens the plane");
  }
  if (matrix.isMirroring()) n.negate();
  return set(matrix * m_origin, n);
}
