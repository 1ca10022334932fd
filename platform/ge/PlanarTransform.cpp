#include "platform/ge/PlanarTransform.h"

#include <cmath>

namespace {
// Relative tolerance for comparing the lengths and angles of transformed axes: looser than the
// point tolerance so that chains of rotations do not count as distortions.
constexpr double kShapeTol = 1e-9;

bool isWorldZ(const OdGeVector3d& normal) {
  return normal.x == 0.0 && normal.y == 0.0 && normal.z > 0.0;
}

// The object system of a normal; the common world-Z case skips the arbitrary-axis rule.
OdGeMatrix3d objectToWorld(const OdGeVector3d& normal) {
  return isWorldZ(normal) ? OdGeMatrix3d() : OdGeMatrix3d::planeToWorld(normal);
}
}  // namespace

PlanarTransform::PlanarTransform(const OdGeMatrix3d& matrix, const OdGeVector3d& normal) {
  const bool affine =
      matrix[3][0] == 0.0 && matrix[3][1] == 0.0 && matrix[3][2] == 0.0 && matrix[3][3] == 1.0;
  if (!affine || normal.isZeroLength()) return;
  const bool fromWorldZ = isWorldZ(normal);
  const OdGeMatrix3d oldToWorld = objectToWorld(normal);
  const OdGeVector3d xImage = fromWorldZ ? matrix.getCsXAxis() : matrix * oldToWorld.getCsXAxis();
  const OdGeVector3d yImage = fromWorldZ ? matrix.getCsYAxis() : matrix * oldToWorld.getCsYAxis();
  const OdGeVector3d zImage = fromWorldZ ? matrix.getCsZAxis() : matrix * oldToWorld.getCsZAxis();
  const OdGeVector3d spanned = xImage.crossProduct(yImage);
  // The volume factor against the axis lengths: a flattening matrix has (almost) none.
  const double volume = spanned.dotProduct(zImage);
  const double xLength = xImage.length();
  const double yLength = yImage.length();
  const double scale = xLength * yLength * zImage.length();
  if (!(scale > 0.0) || !std::isfinite(scale) ||
      std::fabs(volume) <= OdGeContext::gTol.equalVector() * scale)
    return;
  m_reversed = volume < 0.0;
  m_newNormal = (m_reversed ? -spanned : spanned).normal();
  const bool flat = fromWorldZ && isWorldZ(m_newNormal);
  m_ocsMap = flat ? matrix : OdGeMatrix3d::worldToPlane(m_newNormal) * matrix * oldToWorld;
  m_scale = std::sqrt(xLength * yLength);
  m_similarity = std::fabs(xLength - yLength) <= kShapeTol * (xLength + yLength) &&
                 std::fabs(xImage.dotProduct(yImage)) <= kShapeTol * xLength * yLength;
  m_normalScale = zImage.dotProduct(m_newNormal);
  m_valid = true;
}

double PlanarTransform::mapAngle(double angle) const {
  const OdGeVector3d image = m_ocsMap * OdGeVector3d(std::cos(angle), std::sin(angle), 0.0);
  return std::atan2(image.y, image.x);
}
