// Direction queries, rotations and transformation of space vectors.
#include "platform/ge/OdGeVector3d.h"

#include "platform/base/OdError.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeMatrix3d.h"

const OdGeVector3d OdGeVector3d::kIdentity(0.0, 0.0, 0.0);
const OdGeVector3d OdGeVector3d::kZero(0.0, 0.0, 0.0);
const OdGeVector3d OdGeVector3d::kXAxis(1.0, 0.0, 0.0);
const OdGeVector3d OdGeVector3d::kYAxis(0.0, 1.0, 0.0);
const OdGeVector3d OdGeVector3d::kZAxis(0.0, 0.0, 1.0);

double OdGeVector3d::angleTo(const OdGeVector3d& v) const {
  // atan2 of |cross| and dot stays accurate near 0 and pi, where acos does not.
  return std::atan2(crossProduct(v).length(), dotProduct(v));
}

double OdGeVector3d::angleTo(const OdGeVector3d& v, const OdGeVector3d& reference) const {
  const double unsignedAngle = angleTo(v);
  if (crossProduct(v).dotProduct(reference) < 0.0) {
    return OdGeAngle::normalize(OdGeAngle::k2Pi - unsignedAngle);
  }
  return OdGeAngle::normalize(unsignedAngle);
}

bool OdGeVector3d::isParallelTo(const OdGeVector3d& v, const OdGeTol& tol) const {
  const double la = length();
  const double lb = v.length();
  if (la <= tol.equalVector() || lb <= tol.equalVector()) return false;
  return crossProduct(v).length() <= tol.equalVector() * la * lb;
}

bool OdGeVector3d::isCodirectionalTo(const OdGeVector3d& v, const OdGeTol& tol) const {
  if (isZeroLength(tol) || v.isZeroLength(tol)) return false;
  return normal(tol).isEqualTo(v.normal(tol), tol);
}

bool OdGeVector3d::isPerpendicularTo(const OdGeVector3d& v, const OdGeTol& tol) const {
  const double la = length();
  const double lb = v.length();
  if (la <= tol.equalVector() || lb <= tol.equalVector()) return false;
  return std::fabs(dotProduct(v)) <= tol.equalVector() * la * lb;
}

OdGeVector3d OdGeVector3d::perpVector() const {
  const double len = length();
  if (len == 0.0) return kZero;
  const double limit = len / 64.0;
  return (std::fabs(x) < limit && std::fabs(y) < limit) ? kYAxis.crossProduct(*this)
                                                        : kZAxis.crossProduct(*this);
}

OdGeVector3d& OdGeVector3d::rotateBy(double angle, const OdGeVector3d& axis) {
  return transformBy(OdGeMatrix3d::rotation(angle, axis));
}

OdGeVector3d& OdGeVector3d::mirror(const OdGeVector3d& normal) {
  const double len = normal.length();
  if (len == 0.0 || !std::isfinite(len)) {
    throw OdError(eDegenerateGeometry, "OdGeVector3d::mirror: the mirror normal has no direction");
  }
  const OdGeVector3d n = normal / len;
  return *this -= n * (2.0 * dotProduct(n));
}

OdGeVector3d& OdGeVector3d::transformBy(const OdGeMatrix3d& matrix) {
  return setToProduct(matrix, *this);
}

OdGeVector3d& OdGeVector3d::setToProduct(const OdGeMatrix3d& matrix, const OdGeVector3d& v) {
  const auto& m = matrix.entry;
  const double vx = v.x;
  const double vy = v.y;
  const double vz = v.z;
  return set(m[0][0] * vx + m[0][1] * vy + m[0][2] * vz, m[1][0] * vx + m[1][1] * vy + m[1][2] * vz,
             m[2][0] * vx + m[2][1] * vy + m[2][2] * vz);
}
