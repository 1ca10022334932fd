// The spline that stands in for a bulged path when a non-uniform scale bends its arcs into
// elliptical ones: the exact rational form of the path, transformed.
#pragma once

#include <vector>

#include "platform/db/OdDbEntity.h"
#include "platform/ge/OdGePoint2d.h"

class SplineCopy {
 public:
  // The spline of the path (object coordinates of normal at elevation) under matrix, with the
  // source's entity properties; eDegenerateGeometry for fewer than two vertices.
  static OdResult ofPath(const OdDbEntity* source, const std::vector<OdGePoint2d>& vertices,
                         const std::vector<double>& bulges, bool closed, double elevation,
                         const OdGeVector3d& normal, const OdGeMatrix3d& matrix,
                         OdDbEntityPtr& copy);
};
