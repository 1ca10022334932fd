// The data of an XY parameter: a base point (0) and a corner (1), and the two corners between
// them, reached from the base along X (2) and along Y (3), kept in step with the first two in
// every position set. One value set for the horizontal and one for the vertical distance.
#pragma once

#include "parameters/CJbCustBlockParameterImpl.h"

class CJbCustBlockXYParameterImpl : public CJbCustBlockParameterImpl {
 public:
  enum Point { kBase = 0, kCorner = 1, kXCorner = 2, kYCorner = 3 };

  CJbCustBlockXYParameterImpl();

  // Recomputes the derived corners of one position set from the base and the corner.
  void DeriveCorners(OdGePoint3d PointRecord::*positions);
  // The corner that puts `point` at position `index` of a set, the base staying.
  OdGePoint3d CornerFor(unsigned index, const OdGePoint3d& point,
                        OdGePoint3d PointRecord::*positions) const;
  // Places the corner at `distance` from the base along X (axis 0) or Y (axis 1), on the side
  // where it is now.
  void PlaceDistance(int axis, double distance);
};
