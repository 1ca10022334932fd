#include "platform/ge/ArcGeometry.h"

#include <cmath>

#include "platform/ge/EllipseArc.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGeTol.h"

bool ArcGeometry::fromBulge(const OdGePoint2d& start, const OdGePoint2d& end, double bulge,
                            OdGePoint2d& center, double& radius, double& startAngle,
                            double& endAngle) {
  if (bulge == 0.0) return false;
  const double sweep = 4.0 * std::atan(std::fabs(bulge));
  const bool ccw = bulge > 0.0;
  if (!fromEnds(ccw ? start : end, ccw ? end : start, sweep, center, radius, startAngle))
    return false;
  endAngle = startAngle + sweep;
  return true;
}

double ArcGeometry::bulgeOfSweep(double sweep) {
  return std::tan(0.25 * sweep);
}

bool ArcGeometry::fromEnds(const OdGePoint2d& start, const OdGePoint2d& end, double sweep,
                           OdGePoint2d& center, double& radius, double& startAngle) {
  const OdGeVector2d chord = end - start;
  const double length = chord.length();
  if (length <= OdGeContext::gTol.equalPoint()) return false;
  const double half = 0.5 * sweep;
  // The centre lies left of the chord for sweeps under a half turn and right of it beyond.
  const OdGeVector2d left(-chord.y / length, chord.x / length);
  center = start + chord * 0.5 + left * (0.5 * length * std::cos(half) / std::sin(half));
  radius = 0.5 * length / std::sin(half);
  startAngle = std::atan2(start.y - center.y, start.x - center.x);
  return true;
}

void ArcGeometry::addPathExtents(const std::vector<OdGePoint2d>& vertices,
                                 const std::vector<double>& bulges, bool closed, double elevation,
                                 const OdGeVector3d& normal, OdGeExtents3d& extents) {
  const OdGeMatrix3d toWorld = OdGeMatrix3d::planeToWorld(normal);
  const std::size_t count = vertices.size();
  for (const OdGePoint2d& vertex : vertices)
    extents.addPoint(toWorld * vertex.convert3d(elevation));
  const std::size_t segments = closed ? count : (count == 0 ? 0 : count - 1);
  for (std::size_t i = 0; i < segments; ++i) {
    OdGePoint2d center;
    double radius = 0.0;
    double startAngle = 0.0;
    double endAngle = 0.0;
    const double bulge = i < bulges.size() ? bulges[i] : 0.0;
    if (!fromBulge(vertices[i], vertices[(i + 1) % count], bulge, center, radius, startAngle,
                   endAngle))
      continue;
    EllipseArc(toWorld * center.convert3d(elevation), toWorld.getCsXAxis() * radius,
               toWorld.getCsYAxis() * radius, startAngle, endAngle)
        .addToExtents(extents);
  }
}
