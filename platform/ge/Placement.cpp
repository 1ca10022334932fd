// Placement of a copy: decomposition of its transform.
#include "platform/ge/Placement.h"

#include <algorithm>
#include <cmath>

#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeTol.h"

namespace {
constexpr double kTwoPi = OdGeAngle::k2Pi;

OdGeVector3d rotated(const OdGeVector3d& v, double angle) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  return OdGeVector3d(c * v.x - s * v.y, s * v.x + c * v.y, v.z);
}
}  // namespace

OdResult Placement::decompose(const OdGeMatrix3d& xform, const OdGeVector3d& preferredNormal,
                              Placement& out) {
  OdGePoint3d origin;
  OdGeVector3d x, y, z;
  xform.getCoordSystem(origin, x, y, z);
  const double tol = OdGeContext::gTol.equalVector();
  OdGeVector3d normal = x.crossProduct(y);
  if (normal.length() <= tol || z.length() <= tol) return eInvalidInput;
  normal = normal.normal();
  if (normal.dotProduct(preferredNormal) < 0.0) normal = -normal;
  const OdGeMatrix3d toPlane = OdGeMatrix3d::planeToWorld(normal).inverse();
  OdGeVector3d xp = x;
  OdGeVector3d yp = y;
  OdGeVector3d zp = z;
  xp.transformBy(toPlane);
  yp.transformBy(toPlane);
  zp.transformBy(toPlane);
  double rotation = std::atan2(xp.y, xp.x);
  double sx = std::sqrt(xp.x * xp.x + xp.y * xp.y);
  OdGeVector3d yr = rotated(yp, -rotation);
  if (yr.y < 0.0) {
    // Mirrored in the plane: keep the normal, flip X.
    rotation += kTwoPi / 2;
    sx = -sx;
    yr = rotated(yp, -rotation);
  }
  const double scale = std::max(std::fabs(sx), std::fabs(yr.y));
  if (std::fabs(yr.x) > tol * std::max(1.0, scale) ||
      std::fabs(zp.x) > tol * std::max(1.0, scale) ||
      std::fabs(zp.y) > tol * std::max(1.0, scale) ||
      std::fabs(xp.z) > tol * std::max(1.0, scale) || std::fabs(yp.z) > tol * std::max(1.0, scale))
    return eCannotScaleNonUniformly;
  if (std::fabs(sx) <= tol || std::fabs(yr.y) <= tol || std::fabs(zp.z) <= tol)
    return eInvalidInput;
  rotation = std::fmod(rotation, kTwoPi);
  if (rotation < 0.0) rotation += kTwoPi;
  if (rotation >= kTwoPi - 1e-14) rotation = 0.0;
  out.position = origin;
  out.scale = OdGeScale3d(sx, yr.y, zp.z);
  out.rotation = rotation;
  out.normal = normal;
  return eOk;
}
