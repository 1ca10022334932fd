#include "platform/db/entities/OdDbPoint.h"

#include "platform/db/entities/FieldTable.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/PlanarTransform.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbPoint, OdDbEntity, "POINT", "", 0)

// Offsets into a class with a virtual table: GCC supports them for classes without virtual bases
// and says so by a warning.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

OdGePoint3d OdDbPoint::position() const {
  assertReadEnabled();
  return m_position;
}

void OdDbPoint::setPosition(const OdGePoint3d& position) {
  assertWriteEnabled();
  m_position = position;
}

double OdDbPoint::ecsRotation() const {
  assertReadEnabled();
  return m_ecsRotation;
}

void OdDbPoint::setEcsRotation(double angle) {
  assertWriteEnabled();
  m_ecsRotation = OdGeAngle::normalize(angle);
}

OdResult OdDbPoint::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  m_position = matrix * m_position;
  m_ecsRotation = OdGeAngle::normalize(plane.mapAngle(m_ecsRotation));
  m_thickness *= plane.normalScale();
  m_normal = plane.newNormal();
  return eOk;
}

OdResult OdDbPoint::getStretchPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  points.append(m_position);
  return eOk;
}

OdResult OdDbPoint::moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  assertWriteEnabled();
  if (indices.contains(0)) m_position += offset;
  return eOk;
}

OdResult OdDbPoint::subGetGripPoints(OdGePoint3dArray& points) const {
  return getStretchPoints(points);
}

OdResult OdDbPoint::subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  return moveStretchPointsAt(indices, offset);
}

OdResult OdDbPoint::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  extents = OdGeExtents3d();
  extents.addPoint(m_position);
  if (m_thickness != 0.0) extents.addPoint(m_position + m_normal * m_thickness);
  return eOk;
}

FieldTable OdDbPoint::fieldTable() const {
  static constexpr auto kFields = FieldTable::compile({
      FieldTable::marker("AcDbPoint"),
      FieldTable::field(10, FieldTable::kPoint, offsetof(OdDbPoint, m_position)),
      FieldTable::field(39, FieldTable::kReal, offsetof(OdDbPoint, m_thickness)).omittedAt(0.0),
      FieldTable::field(210, FieldTable::kNormal, offsetof(OdDbPoint, m_normal)).omittedAt(),
      FieldTable::field(50, FieldTable::kAngle, offsetof(OdDbPoint, m_ecsRotation))
          .normalizedOnRead()
          .omittedAt(0.0),
  });
  return FieldTable(kFields, this);
}
