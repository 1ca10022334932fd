#include "platform/db/entities/OdDbArc.h"

#include <cmath>

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/entities/FieldTable.h"
#include "platform/ge/ArcGeometry.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/PlanarTransform.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbArc, OdDbEntity, "ARC", "", 0)

// Offsets into a class with a virtual table: GCC supports them for classes without virtual bases
// and says so by a warning.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

OdGePoint3d OdDbArc::center() const {
  assertReadEnabled();
  return m_shape.center;
}

void OdDbArc::setCenter(const OdGePoint3d& center) {
  assertWriteEnabled();
  m_shape.center = center;
}

double OdDbArc::radius() const {
  assertReadEnabled();
  return m_shape.radius;
}

void OdDbArc::setRadius(double radius) {
  assertWriteEnabled();
  m_shape.setRadius(radius, this);
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
  return m_shape.thickness;
}

void OdDbArc::setThickness(double thickness) {
  assertWriteEnabled();
  m_shape.thickness = thickness;
}

OdGeVector3d OdDbArc::normal() const {
  assertReadEnabled();
  return m_shape.normal;
}

void OdDbArc::setNormal(const OdGeVector3d& normal) {
  assertWriteEnabled();
  m_shape.setNormal(normal, this);
}

OdGePoint3d OdDbArc::startPoint() const {
  assertReadEnabled();
  return m_shape.arc(m_startAngle, m_endAngle).pointAt(m_startAngle);
}

OdGePoint3d OdDbArc::endPoint() const {
  assertReadEnabled();
  return m_shape.arc(m_startAngle, m_endAngle).pointAt(m_endAngle);
}

double OdDbArc::sweep() const {
  const double sweep = OdGeAngle::normalize(m_endAngle - m_startAngle);
  return sweep == 0.0 ? OdGeAngle::k2Pi : sweep;
}

OdResult OdDbArc::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  const PlanarTransform plane(matrix, m_shape.normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (!plane.isSimilarity()) return eCannotScaleNonUniformly;
  const double start = plane.mapAngle(m_startAngle);
  const double end = plane.mapAngle(m_endAngle);
  m_startAngle = OdGeAngle::normalize(plane.isReversed() ? end : start);
  m_endAngle = OdGeAngle::normalize(plane.isReversed() ? start : end);
  m_shape.follow(matrix, plane);
  return eOk;
}

OdResult OdDbArc::getTransformedCopy(const OdGeMatrix3d& matrix, OdDbEntityPtr& copy) const {
  assertReadEnabled();
  const PlanarTransform plane(matrix, m_shape.normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (plane.isSimilarity()) return OdDbEntity::getTransformedCopy(matrix, copy);
  return CircularShape::ellipseImage(this, m_shape.arc(m_startAngle, m_startAngle + sweep()), false,
                                     matrix, copy);
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
    m_shape.center += offset;
    return eOk;
  }
  // Only the in-plane part of the offset can move one end of a planar arc.
  const OdGeMatrix3d toPlane = OdGeMatrix3d::worldToPlane(m_shape.normal);
  const OdGeVector3d planeOffset = toPlane * offset;
  const OdGeVector2d shift(planeOffset.x, planeOffset.y);
  const OdGePoint3d ocsCenter = toPlane * m_shape.center;
  const OdGePoint2d c = ocsCenter.convert2d();
  const double r = m_shape.radius;
  OdGePoint2d start = c + OdGeVector2d(std::cos(m_startAngle), std::sin(m_startAngle)) * r;
  OdGePoint2d end = c + OdGeVector2d(std::cos(m_endAngle), std::sin(m_endAngle)) * r;
  (moveStart ? start : end) += shift;
  OdGePoint2d newCenter;
  double radius = 0.0;
  double startAngle = 0.0;
  const double arcSweep = sweep();
  if (!ArcGeometry::fromEnds(start, end, arcSweep, newCenter, radius, startAngle))
    return eDegenerateGeometry;
  m_shape.center = OdGeMatrix3d::planeToWorld(m_shape.normal) * newCenter.convert3d(ocsCenter.z);
  m_shape.radius = radius;
  m_startAngle = OdGeAngle::normalize(startAngle);
  m_endAngle = OdGeAngle::normalize(startAngle + arcSweep);
  return eOk;
}

OdResult OdDbArc::subGetGripPoints(OdGePoint3dArray& points) const {
  getStretchPoints(points);
  points.append(m_shape.center);
  return eOk;
}

OdResult OdDbArc::subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  if (indices.contains(2)) {
    assertWriteEnabled();
    m_shape.center += offset;
    return eOk;
  }
  return moveStretchPointsAt(indices, offset);
}

OdResult OdDbArc::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  extents = OdGeExtents3d();
  m_shape.addExtents(m_shape.arc(m_startAngle, m_startAngle + sweep()), extents);
  return eOk;
}

OdResult OdDbArc::dxfInFields(OdDbDxfFiler* filer) {
  return m_shape.checkRead(OdDbEntity::dxfInFields(filer));
}

FieldTable OdDbArc::fieldTable() const {
  static constexpr auto kFields = FieldTable::compile({
      FieldTable::marker("AcDbArc"),
      FieldTable::field(50, FieldTable::kAngle, offsetof(OdDbArc, m_startAngle)).normalizedOnRead(),
      FieldTable::field(51, FieldTable::kAngle, offsetof(OdDbArc, m_endAngle)).normalizedOnRead(),
  });
  return m_shape.fieldTable().then(kFields, this);
}
