// The outlines and filled areas of drawing entities as painter paths in world XY (plan view):
// curves are sampled finely enough that no chord strays more than a given distance from the
// true curve, after the block transform that places the entity.
#pragma once

#include <QPainterPath>
#include <vector>

#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePoint2d.h"
#include "platform/ge/OdGePoint3d.h"

class OdDbEntity;
class OdDbHatch;
class NurbsCurve;

class EntityPathBuilder {
 public:
  // xform takes the entity's coordinates to world; tolerance is the largest chord deviation in
  // world units.
  EntityPathBuilder(const OdGeMatrix3d& xform, double tolerance);

  // The outline of a line, arc, circle, ellipse, polyline (any kind) or spline; false for
  // entities of another kind.
  bool outline(const OdDbEntity* entity, QPainterPath& path) const;
  // The filled area of a solid or hatch, holes by the odd-even rule; false for another kind.
  bool area(const OdDbEntity* entity, QPainterPath& path) const;
  // A world point of the entity's coordinates, in plan view.
  QPointF map(const OdGePoint3d& point) const;

 private:
  using Points = std::vector<OdGePoint3d>;
  // Number of chords for an arc of this radius and sweep (radians, either sign).
  int arcSegments(double radius, double sweep) const;
  // Points of center + major cos t + minor sin t for t from start over sweep, first included.
  void sampleArc(const OdGePoint3d& center, const OdGeVector3d& major, const OdGeVector3d& minor,
                 double start, double sweep, Points& points) const;
  void sampleNurbs(const NurbsCurve& curve, Points& points) const;
  // A path of the plane with this normal: vertices with bulges, at elevation.
  void sampleBulgedPath(const std::vector<OdGePoint2d>& vertices, const std::vector<double>& bulges,
                        bool closed, double elevation, const OdGeVector3d& normal,
                        Points& points) const;
  void hatchArea(const OdDbHatch* hatch, QPainterPath& path) const;
  void addPolyline(const Points& points, bool closed, QPainterPath& path) const;

  OdGeMatrix3d m_xform;
  double m_localTolerance;
};
