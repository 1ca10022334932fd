#include "platform/db/entities/OdDbArc.h"

#include <cmath>

#include "platform/db/OdDbDwgFiler.h"
#include "platform/db/OdDbDxfFiler.h"
#include "platform/db/entities/ArcGeometry.h"
#include "platform/db/entities/EllipseArc.h"
#include "platform/db/entities/EntityFiling.h"
#include "platform/db/entities/OdDbEllipse.h"
#include "platform/db/entities/PlanarTransform.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbArc, OdDbEntity, "ARC", "", 0)

OdGePoint3d OdDbArc::center() const {
  assertReadEnabled();
  return m_center;
}

void OdDbArc::setCenter(const OdGePoint3d& center) {
  assertWriteEnabled();
  m_center = center;
}

double OdDbArc::radius() const {
  assertReadEnabled();
  return m_radius;
}

void OdDbArc::setRadius(double radius) {
  if (!(radius > 0.0)) throw OdError(eInvalidInput, "OdDbArc::setRadius: radius must be > 0");
  assertWriteEnabled();
  m_radius = radius;
}

double OdDbArc::startAngle() const {
  assertReadEnabled();
  return m_startAngle;
}

void OdDbArc::setStartAngle(double angle) {
  assertWriteEnabled();
  m_startAngle = OdGeAngle::normalize(angle);
}

double OdDbArc::endAngle() const {
  assertReadEnabled();
  return m_endAngle;
}

void OdDbArc::setEndAngle(double angle) {
  assertWriteEnabled();
  m_endAngle = OdGeAngle::normalize(angle);
}

double OdDbArc::thickness() const {
  assertReadEnabled();
  return m_thickness;
}

void OdDbArc::setThickness(double thickness) {
  assertWriteEnabled();
  m_thickness = thickness;
}

OdGeVector3d OdDbArc::normal() const {
  assertReadEnabled();
  return m_normal;
}

void OdDbArc::setNormal(const OdGeVector3d& normal) {
  if (normal.isZeroLength()) throw OdError(eInvalidInput, "OdDbArc::setNormal: zero normal");
  assertWriteEnabled();
  m_normal = normal.normal();
}

OdGePoint3d OdDbArc::startPoint() const {
  assertReadEnabled();
  return EllipseArc::circular(m_center, m_normal, m_radius, m_startAngle, m_endAngle)
      .pointAt(m_startAngle);
}

OdGePoint3d OdDbArc::endPoint() const {
  assertReadEnabled();
  return EllipseArc::circular(m_center, m_normal, m_radius, m_startAngle, m_endAngle)
      .pointAt(m_endAngle);
}

double OdDbArc::sweep() const {
  const double sweep = OdGeAngle::normalize(m_endAngle - m_startAngle);
  return sweep == 0.0 ? OdGeAngle::k2Pi : sweep;
}

OdResult OdDbArc::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (!plane.isSimilarity()) return eCannotScaleNonUniformly;
  const double start = plane.mapAngle(m_startAngle);
  const double end = plane.mapAngle(m_endAngle);
  m_startAngle = OdGeAngle::normalize(plane.isReversed() ? end : start);
  m_endAngle = OdGeAngle::normalize(plane.isReversed() ? start : end);
  m_center = matrix * m_center;
  m_radius *= plane.scale();
  m_thickness *= plane.normalScale();
  m_normal = plane.newNormal();
  return eOk;
}

OdResult OdDbArc::getTransformedCopy(const OdGeMatrix3d& matrix, OdDbEntityPtr& copy) const {
  assertReadEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (plane.isSimilarity()) return OdDbEntity::getTransformedCopy(matrix, copy);
  EllipseArc image =
      EllipseArc::circular(m_center, m_normal, m_radius, m_startAngle, m_startAngle + sweep());
  if (!image.transformedBy(matrix, image)) return eDegenerateGeometry;
  OdDbEllipsePtr ellipse = OdDbEllipse::createObject();
  EntityFiling::copyProperties(this, ellipse.get());
  const double ratio = image.minorAxis().length() / image.majorAxis().length();
  ellipse->set(image.center(), image.majorAxis().crossProduct(image.minorAxis()), image.majorAxis(),
               ratio, image.startParam(), image.endParam());
  copy = ellipse;
  return eOk;
}

OdResult OdDbArc::getStretchPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  points.append(startPoint());
  points.append(endPoint());
  return eOk;
}

OdResult OdDbArc::moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  assertWriteEnabled();
  const bool moveStart = indices.contains(0);
  const bool moveEnd = indices.contains(1);
  if (!moveStart && !moveEnd) return eOk;
  if (moveStart && moveEnd) {
    m_center += offset;
    return eOk;
  }
  // Only the in-plane part of the offset can move one end of a planar arc.
  const OdGeMatrix3d toPlane = OdGeMatrix3d::worldToPlane(m_normal);
  const OdGeVector3d planeOffset = toPlane * offset;
  const OdGeVector2d shift(planeOffset.x, planeOffset.y);
  const OdGePoint3d ocsCenter = toPlane * m_center;
  const OdGePoint2d c = ocsCenter.convert2d();
  OdGePoint2d start = c + OdGeVector2d(std::cos(m_startAngle), std::sin(m_startAngle)) * m_radius;
  OdGePoint2d end = c + OdGeVector2d(std::cos(m_endAngle), std::sin(m_endAngle)) * m_radius;
  (moveStart ? start : end) += shift;
  OdGePoint2d newCenter;
  double radius = 0.0;
  double startAngle = 0.0;
  const double arcSweep = sweep();
  if (!ArcGeometry::fromEnds(start, end, arcSweep, newCenter, radius, startAngle))
    return eDegenerateGeometry;
  m_center = OdGeMatrix3d::planeToWorld(m_normal) * newCenter.convert3d(ocsCenter.z);
  m_radius = radius;
  m_startAngle = OdGeAngle::normalize(startAngle);
  m_endAngle = OdGeAngle::normalize(startAngle + arcSweep);
  return eOk;
}

OdResult OdDbArc::getGripPoints(OdGePoint3dArray& points) const {
  getStretchPoints(points);
  points.append(m_center);
  return eOk;
}

OdResult OdDbArc::moveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  if (indices.contains(2)) {
    assertWriteEnabled();
    m_center += offset;
    return eOk;
  }
  return moveStretchPointsAt(indices, offset);
}

OdResult OdDbArc::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  extents = OdGeExtents3d();
  EllipseArc::circular(m_center, m_normal, m_radius, m_startAngle, m_startAngle + sweep())
      .addToExtents(extents);
  if (m_thickness != 0.0) extents.expandBy(m_normal * m_thickness);
  return eOk;
}

OdResult OdDbArc::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult res = OdDbEntity::dwgInFields(filer);
  if (res != eOk) return res;
  m_center = filer->rdPoint3d();
  m_radius = filer->rdDouble();
  m_startAngle = filer->rdDouble();
  m_endAngle = filer->rdDouble();
  m_thickness = filer->rdDouble();
  m_normal = filer->rdVector3d();
  return eOk;
}

void OdDbArc::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrPoint3d(m_center);
  filer->wrDouble(m_radius);
  filer->wrDouble(m_startAngle);
  filer->wrDouble(m_endAngle);
  filer->wrDouble(m_thickness);
  filer->wrVector3d(m_normal);
}

OdResult OdDbArc::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult res = OdDbEntity::dxfInFields(filer);
  if (res != eOk) return res;
  EntityFiling::requireSubclass(filer, this, "AcDbCircle");
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
  EntityFiling::requireSubclass(filer, this, "AcDbArc");
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    switch (filer->nextItem()) {
      case 50:
        m_startAngle = OdGeAngle::normalize(EntityFiling::rdAngleDegrees(filer));
        break;
      case 51:
        m_endAngle = OdGeAngle::normalize(EntityFiling::rdAngleDegrees(filer));
        break;
      default:
        break;
    }
  }
  if (!(m_radius > 0.0)) return eInvalidInput;
  m_center = EntityFiling::toWcs(m_normal, ocsCenter);
  return eOk;
}

void OdDbArc::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbCircle");
  if (m_thickness != 0.0) filer->wrDouble(39, m_thickness);
  filer->wrPoint3d(10, EntityFiling::toOcs(m_normal, m_center));
  filer->wrDouble(40, m_radius);
  if (!m_normal.isEqualTo(OdGeVector3d::kZAxis)) filer->wrVector3d(210, m_normal);
  filer->wrSubclassMarker("AcDbArc");
  EntityFiling::wrAngleDegrees(filer, 50, m_startAngle);
  EntityFiling::wrAngleDegrees(filer, 51, m_endAngle);
}
