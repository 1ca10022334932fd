// Where a placed copy of something lies: a position, a plane given by its normal, a rotation in
// that plane and a scale along each axis, as block references keep it.
#pragma once

#include "platform/base/OdResult.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeScale3d.h"
#include "platform/ge/OdGeVector3d.h"

struct Placement {
  OdGePoint3d position;
  OdGeScale3d scale;
  double rotation = 0.0;  // in [0, 2pi)
  OdGeVector3d normal;

  // Splits xform (translation * plane * rotation * scaling) into its parts, the normal on the
  // side of preferredNormal and a mirror in the plane kept as a negative X scale.
  // eCannotScaleNonUniformly for a shear or a scale askew to the axes, eInvalidInput for a
  // matrix that collapses an axis.
  static OdResult decompose(const OdGeMatrix3d& xform, const OdGeVector3d& preferredNormal,
                            Placement& out);
};
