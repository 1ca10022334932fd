// Circle data shared by circles and arcs.
#include "platform/db/entities/CircularShape.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/entities/OdDbEllipse.h"
#include "platform/ge/PlanarTransform.h"

void CircularShape::setRadius(double value, const OdDbObject* owner) {
  if (!(value > 0.0))
    throw OdError(eInvalidInput, owner->describe().str() + ": the radius must be positive");
  radius = value;
}

void CircularShape::setNormal(const OdGeVector3d& value, const OdDbObject* owner) {
  if (value.isZeroLength())
    throw OdError(eInvalidInput, owner->describe().str() + ": a zero normal");
  normal = value.normal();
}

EllipseArc CircularShape::arc(double startAngle, double endAngle) const {
  return EllipseArc::circular(center, normal, radius, startAngle, endAngle);
}

void CircularShape::follow(const OdGeMatrix3d& matrix, const PlanarTransform& plane) {
  center = matrix * center;
  radius *= plane.scale();
  thickness *= plane.normalScale();
  normal = plane.newNormal();
}

OdResult CircularShape::ellipseImage(const OdDbEntity* source, const EllipseArc& shape, bool whole,
                                     const OdGeMatrix3d& matrix, OdDbEntityPtr& copy) {
  EllipseArc image = shape;
  if (!shape.transformedBy(matrix, image)) return eDegenerateGeometry;
  OdDbEllipsePtr ellipse = OdDbEllipse::createObject();
  EntityFiling::copyProperties(source, ellipse.get());
  const OdGeVector3d normal = image.majorAxis().crossProduct(image.minorAxis());
  const double ratio = image.minorAxis().length() / image.majorAxis().length();
  if (whole)
    ellipse->set(image.center(), normal, image.majorAxis(), ratio);
  else
    ellipse->set(image.center(), normal, image.majorAxis(), ratio, image.startParam(),
                 image.endParam());
  copy = ellipse;
  return eOk;
}

void CircularShape::addExtents(const EllipseArc& shape, OdGeExtents3d& extents) const {
  shape.addToExtents(extents);
  if (thickness != 0.0) extents.expandBy(normal * thickness);
}

FieldTable CircularShape::fieldTable() const {
  static constexpr auto kFields = FieldTable::compile({
      FieldTable::marker("AcDbCircle"),
      FieldTable::field(39, FieldTable::kReal, offsetof(CircularShape, thickness)).omittedAt(0.0),
      FieldTable::field(10, FieldTable::kOcsPoint, offsetof(CircularShape, center)),
      FieldTable::field(40, FieldTable::kReal, offsetof(CircularShape, radius)),
      FieldTable::field(210, FieldTable::kNormal, offsetof(CircularShape, normal)).omittedAt(),
  });
  return FieldTable(kFields, this);
}

OdResult CircularShape::checkRead(OdResult read) const {
  return read == eOk && !(radius > 0.0) ? eInvalidInput : read;
}
