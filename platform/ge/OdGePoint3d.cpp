// Transformation and rotation of space points.
#include "platform/ge/OdGePoint3d.h"

#include "platform/ge/OdGeMatrix3d.h"

const OdGePoint3d OdGePoint3d::kOrigin(0.0, 0.0, 0.0);

OdGePoint3d& OdGePoint3d::transformBy(const OdGeMatrix3d& matrix) {
  return setToProduct(matrix, *this);
}

OdGePoint3d& OdGePoint3d::setToProduct(const OdGeMatrix3d& matrix, const OdGePoint3d& p) {
  const auto& m = matrix.entry;
  const double px = p.x;
  const double py = p.y;
  const double pz = p.z;
  set(m[0][0] * px + m[0][1] * py + m[0][2] * pz + m[0][3],
      m[1][0] * px + m[1][1] * py + m[1][2] * pz + m[1][3],
      m[2][0] * px + m[2][1] * py + m[2][2] * pz + m[2][3]);
  // Only a projective matrix has a bottom row other than (0, 0, 0, 1).
  const double w = m[3][0] * px + m[3][1] * py + m[3][2] * pz + m[3][3];
  if (w != 1.0 && w != 0.0) *this = *this / w;
  return *this;
}

OdGePoint3d& OdGePoint3d::rotateBy(double angle, const OdGeVector3d& axis,
                                   const OdGePoint3d& center) {
  return transformBy(OdGeMatrix3d::rotation(angle, axis, center));
}
