// Circle data shared by circles and arcs.
#include "platform/db/entities/CircularShape.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/entities/OdDbEllipse.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
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

OdResult CircularShape::dwgIn(OdDbDwgFiler* filer) {
  center = filer->rdPoint3d();
  radius = filer->rdDouble();
  thickness = filer->rdDouble();
  normal = filer->rdVector3d();
  return eOk;
}

void CircularShape::dwgOut(OdDbDwgFiler* filer) const {
  filer->wrPoint3d(center);
  filer->wrDouble(radius);
  filer->wrDouble(thickness);
  filer->wrVector3d(normal);
}

OdResult CircularShape::dxfIn(OdDbDxfFiler* filer) {
  OdGePoint3d ocsCenter;
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    const int code = filer->nextItem();
    if (code == 100) {
      filer->pushBackItem();
      break;
    }
    switch (code) {
      case 10:
        ocsCenter = filer->rdPoint3d();
        break;
      case 39:
        thickness = filer->rdDouble();
        break;
      case 40:
        radius = filer->rdDouble();
        break;
      case 210:
        normal = EntityFiling::rdNormal(filer);
        break;
      default:
        break;
    }
  }
  if (!(radius > 0.0)) return eInvalidInput;
  center = EntityFiling::toWcs(normal, ocsCenter);
  return eOk;
}

void CircularShape::dxfOut(OdDbDxfFiler* filer) const {
  if (thickness != 0.0) filer->wrDouble(39, thickness);
  filer->wrPoint3d(10, EntityFiling::toOcs(normal, center));
  filer->wrDouble(40, radius);
  if (!normal.isEqualTo(OdGeVector3d::kZAxis)) filer->wrVector3d(210, normal);
}
