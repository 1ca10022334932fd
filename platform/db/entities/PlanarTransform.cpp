#include "platform/db/entities/PlanarTransform.h"

#include <cmath>

namespace {
// Relative tolerance for comparing the lengths and angles of transformed axes: looser than the
// point tolerance so that chains of rotations do not count as distortions.
constexpr double kShapeTol = 1e-9;
}  // namespace

PlanarTransform::PlanarTransform(const OdGeMatrix3d& matrix, const OdGeVector3d& normal)
    : m_matrix(matrix) {
  if (normal.isZeroLength() || matrix.isSingular()) return;
  m_oldToWorld = OdGeMatrix3d::planeToWorld(normal);
  const OdGeVector3d xImage = matrix * m_oldToWorld.getCsXAxis();
  const OdGeVector3d yImage = matrix * m_oldToWorld.getCsYAxis();
  const OdGeVector3d spanned = xImage.crossProduct(yImage);
  if (spanned.isZeroLength()) return;
  m_reversed = matrix.det() < 0.0;
  m_newNormal = (m_reversed ? -spanned : spanned).normal();
  m_worldToNew = OdGeMatrix3d::worldToPlane(m_newNormal);
  const double xLength = xImage.length();
  const double yLength = yImage.length();
  m_scale = std::sqrt(xLength * yLength);
  m_similarity = std::fabs(xLength - yLength) <= kShapeTol * (xLength + yLength) &&
                 std::fabs(xImage.dotProduct(yImage)) <= kShapeTol * xLength * yLength;
  m_normalScale = (matrix * m_oldToWorld.getCsZAxis()).dotProduct(m_newNormal);
  m_valid = true;
}

double PlanarTransform::mapAngle(double angle) const {
  const OdGeVector3d direction =
      m_oldToWorld.getCsXAxis() * std::cos(angle) + m_oldToWorld.getCsYAxis() * std::sin(angle);
  const OdGeVector3d image = m_worldToNew * (m_matrix * direction);
  return std::atan2(image.y, image.x);
}

OdGePoint3d PlanarTransform::mapOcsPoint(const OdGePoint3d& ocs) const {
  return m_worldToNew * (m_matrix * (m_oldToWorld * ocs));
}
