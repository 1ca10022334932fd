#include "platform/db/entities/OdDbCircle.h"

#include "platform/db/OdDbDwgFiler.h"
#include "platform/db/OdDbDxfFiler.h"
#include "platform/db/entities/EllipseArc.h"
#include "platform/db/entities/EntityFiling.h"
#include "platform/db/entities/OdDbEllipse.h"
#include "platform/db/entities/PlanarTransform.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbCircle, OdDbEntity, "CIRCLE", "", 0)

OdGePoint3d OdDbCircle::center() const {
  assertReadEnabled();
  return m_center;
}

void OdDbCircle::setCenter(const OdGePoint3d& center) {
  assertWriteEnabled();
  m_center = center;
}

double OdDbCircle::radius() const {
  assertReadEnabled();
  return m_radius;
}

void OdDbCircle::setRadius(double radius) {
  if (!(radius > 0.0)) throw OdError(eInvalidInput, "OdDbCircle::setRadius: radius must be > 0");
  assertWriteEnabled();
  m_radius = radius;
}

double OdDbCircle::thickness() const {
  assertReadEnabled();
  return m_thickness;
}

void OdDbCircle::setThickness(double thickness) {
  assertWriteEnabled();
  m_thickness = thickness;
}

OdGeVector3d OdDbCircle::normal() const {
  assertReadEnabled();
  return m_normal;
}

void OdDbCircle::setNormal(const OdGeVector3d& normal) {
  if (normal.isZeroLength()) throw OdError(eInvalidInput, "OdDbCircle::setNormal: zero normal");
  assertWriteEnabled();
  m_normal = normal.normal();
}

OdResult OdDbCircle::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (!plane.isSimilarity()) return eCannotScaleNonUniformly;
  m_center = matrix * m_center;
  m_radius *= plane.scale();
  m_thickness *= plane.normalScale();
  m_normal = plane.newNormal();
  return eOk;
}

OdResult OdDbCircle::getTransformedCopy(const OdGeMatrix3d& matrix, OdDbEntityPtr& copy) const {
  assertReadEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (plane.isSimilarity()) return OdDbEntity::getTransformedCopy(matrix, copy);
  EllipseArc image = EllipseArc::circular(m_center, m_normal, m_radius, 0.0, OdGeAngle::k2Pi);
  if (!image.transformedBy(matrix, image)) return eDegenerateGeometry;
  OdDbEllipsePtr ellipse = OdDbEllipse::createObject();
  EntityFiling::copyProperties(this, ellipse.get());
  const double ratio = image.minorAxis().length() / image.majorAxis().length();
  ellipse->set(image.center(), image.majorAxis().crossProduct(image.minorAxis()), image.majorAxis(),
               ratio);
  copy = ellipse;
  return eOk;
}

OdResult OdDbCircle::getStretchPoints(OdGePoint3dArray&) const {
  assertReadEnabled();
  return eOk;
}

OdResult OdDbCircle::moveStretchPointsAt(const OdIntArray&, const OdGeVector3d&) {
  assertWriteEnabled();
  return eOk;
}

OdResult OdDbCircle::getGripPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  const OdGeMatrix3d axes = OdGeMatrix3d::planeToWorld(m_normal);
  const OdGeVector3d x = axes.getCsXAxis() * m_radius;
  const OdGeVector3d y = axes.getCsYAxis() * m_radius;
  points.append(m_center);
  points.append(m_center + x);
  points.append(m_center + y);
  points.append(m_center - x);
  points.append(m_center - y);
  return eOk;
}

OdResult OdDbCircle::moveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  assertWriteEnabled();
  for (int index : indices) {
    if (index == 0) {
      m_center += offset;
      return eOk;
    }
  }
  OdGePoint3dArray grips;
  getGripPoints(grips);
  for (int index : indices) {
    if (index < 1 || index > 4) continue;
    const double radius = (grips[index] + offset).distanceTo(m_center);
    if (radius <= OdGeContext::gTol.equalPoint()) return eDegenerateGeometry;
    m_radius = radius;
    return eOk;
  }
  return eOk;
}

OdResult OdDbCircle::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  extents = OdGeExtents3d();
  EllipseArc::circular(m_center, m_normal, m_radius, 0.0, OdGeAngle::k2Pi).addToExtents(extents);
  if (m_thickness != 0.0) extents.expandBy(m_normal * m_thickness);
  return eOk;
}

OdResult OdDbCircle::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult res = OdDbEntity::dwgInFields(filer);
  if (res != eOk) return res;
  m_center = filer->rdPoint3d();
  m_radius = filer->rdDouble();
  m_thickness = filer->rdDouble();
  m_normal = filer->rdVector3d();
  return eOk;
}

void OdDbCircle::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrPoint3d(m_center);
  filer->wrDouble(m_radius);
  filer->wrDouble(m_thickness);
  filer->wrVector3d(m_normal);
}

OdResult OdDbCircle::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult res = OdDbEntity::dxfInFields(filer);
  if (res != eOk) return res;
  EntityFiling::requireSubclass(filer, this, "AcDbCircle");
  OdGePoint3d ocsCenter;
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    switch (filer->nextItem()) {
      case 10:
        ocsCenter = filer->rdPoint3d();
        break;
      case 39:
        m_thickness = filer->rdDouble();
        break;
      case 40:
        m_radius = filer->rdDouble();
        break;
      case 210:
        m_normal = EntityFiling::rdNormal(filer);
        break;
      default:
        break;
    }
  }
  if (!(m_radius > 0.0)) return eInvalidInput;
  m_center = EntityFiling::toWcs(m_normal, ocsCenter);
  return eOk;
}

void OdDbCircle::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbCircle");
  if (m_thickness != 0.0) filer->wrDouble(39, m_thickness);
  filer->wrPoint3d(10, EntityFiling::toOcs(m_normal, m_center));
  filer->wrDouble(40, m_radius);
  if (!m_normal.isEqualTo(OdGeVector3d::kZAxis)) filer->wrVector3d(210, m_normal);
}
