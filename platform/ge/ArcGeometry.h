// Circular arcs of a plane given by their end points and bulge (the tangent of a quarter of the
// included angle, positive counter-clockwise), as polylines and hatch boundaries store them.
#pragma once

#include <vector>

#include "platform/ge/OdGeExtents3d.h"
#include "platform/ge/OdGePoint2d.h"
#include "platform/ge/OdGeVector3d.h"

class ArcGeometry {
 public:
  // The arc from start to end with this bulge: centre, radius and the counter-clockwise start and
  // end angles of the arc as a set of points (for a negative bulge they run from end to start).
  // False for a zero bulge or coincident end points.
  static bool fromBulge(const OdGePoint2d& start, const OdGePoint2d& end, double bulge,
                        OdGePoint2d& center, double& radius, double& startAngle, double& endAngle);
  // The bulge of a counter-clockwise sweep (radians, in (0, 2*pi)).
  static double bulgeOfSweep(double sweep);
  // The counter-clockwise arc with this sweep through the given end points: its centre, radius
  // and start angle. False when the end points coincide.
  static bool fromEnds(const OdGePoint2d& start, const OdGePoint2d& end, double sweep,
                       OdGePoint2d& center, double& radius, double& startAngle);
  // Adds the exact box of a bulged path of the plane with this normal (object coordinates at
  // the given elevation) to extents.
  static void addPathExtents(const std::vector<OdGePoint2d>& vertices,
                             const std::vector<double>& bulges, bool closed, double elevation,
                             const OdGeVector3d& normal, OdGeExtents3d& extents);
};
