// The centre, radius, thickness and plane that circles and arcs share, and what they do alike
// with them: checked setting, following a similarity, the elliptical image under any other
// transformation, the exact box, and the filing of the circle part.
#pragma once

#include "platform/db/OdDbEntity.h"
#include "platform/db/entities/FieldTable.h"
#include "platform/ge/EllipseArc.h"

class PlanarTransform;

class CircularShape {
 public:
  OdGePoint3d center;
  double radius = 1.0;
  double thickness = 0.0;
  OdGeVector3d normal = OdGeVector3d::kZAxis;

  // eInvalidInput naming owner for a radius that is not positive or a zero normal.
  void setRadius(double value, const OdDbObject* owner);
  void setNormal(const OdGeVector3d& value, const OdDbObject* owner);

  // The counter-clockwise arc of this circle between two angles of its object system.
  EllipseArc arc(double startAngle, double endAngle) const;
  // Follows a similarity (plane must be valid and similar): centre, radius, thickness, normal.
  void follow(const OdGeMatrix3d& matrix, const PlanarTransform& plane);
  // The ellipse that shape (an arc of this circle) becomes under matrix, with source's
  // properties; whole says the shape is the full circle. eDegenerateGeometry when the matrix
  // collapses it.
  static OdResult ellipseImage(const OdDbEntity* source, const EllipseArc& shape, bool whole,
                               const OdGeMatrix3d& matrix, OdDbEntityPtr& copy);
  // The exact box of shape swept along the thickness.
  void addExtents(const EllipseArc& shape, OdGeExtents3d& extents) const;

  // The circle subclass: 39 thickness, 10 centre (in the plane), 40 radius, 210 normal.
  FieldTable fieldTable() const;
  // The result of a read, or eInvalidInput after one that left a radius that is not positive.
  OdResult checkRead(OdResult read) const;
};
