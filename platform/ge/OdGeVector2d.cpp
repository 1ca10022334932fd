// Direction queries and rotations of plane vectors.
#include "platform/ge/OdGeVector2d.h"

#include "platform/base/OdError.h"
#include "platform/ge/OdGeAngle.h"

const OdGeVector2d OdGeVector2d::kIdentity(0.0, 0.0);
const OdGeVector2d OdGeVector2d::kZero(0.0, 0.0);
const OdGeVector2d OdGeVector2d::kXAxis(1.0, 0.0);
const OdGeVector2d OdGeVector2d::kYAxis(0.0, 1.0);

double OdGeVector2d::angle() const {
  return OdGeAngle::normalize(std::atan2(y, x));
}

double OdGeVector2d::angleTo(const OdGeVector2d& v) const {
  // atan2 of |cross| and dot stays accurate near 0 and pi, where acos does not.
  return std::atan2(std::fabs(crossProduct(v)), dotProduct(v));
}

bool OdGeVector2d::isParallelTo(const OdGeVector2d& v, const OdGeTol& tol) const {
  const double la = length();
  const double lb = v.length();
  if (la <= tol.equalVector() || lb <= tol.equalVector()) return false;
  return std::fabs(crossProduct(v)) <= tol.equalVector() * la * lb;
}

bool OdGeVector2d::isCodirectionalTo(const OdGeVector2d& v, const OdGeTol& tol) const {
  if (isZeroLength(tol) || v.isZeroLength(tol)) return false;
  return normal(tol).isEqualTo(v.normal(tol), tol);
}

bool OdGeVector2d::isPerpendicularTo(const OdGeVector2d& v, const OdGeTol& tol) const {
  const double la = length();
  const double lb = v.length();
  if (la <= tol.equalVector() || lb <= tol.equalVector()) return false;
  return std::fabs(dotProduct(v)) <= tol.equalVector() * la * lb;
}

OdGeVector2d& OdGeVector2d::rotateBy(double angle) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  return set(c * x - s * y, s * x + c * y);
}

OdGeVector2d& OdGeVector2d::mirror(const OdGeVector2d& normal) {
  const double len = normal.length();
  if (len == 0.0 || !std::isfinite(len)) {
    throw OdError(eDegenerateGeometry, "OdGeVector2d::mirror: the mirror normal has no direction");
  }
  const OdGeVector2d n = normal / len;
  return *this -= n * (2.0 * dotProduct(n));
}
