#include "platform/db/entities/OdDbLine.h"

#include "platform/db/entities/FieldTable.h"
#include "platform/ge/PlanarTransform.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbLine, OdDbEntity, "LINE", "", 0)

// Offsets into a class with a virtual table: GCC supports them for classes without virtual bases
// and says so by a warning.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

OdGePoint3d OdDbLine::startPoint() const {
  assertReadEnabled();
  return m_start;
}

void OdDbLine::setStartPoint(const OdGePoint3d& point) {
  assertWriteEnabled();
  m_start = point;
}

OdGePoint3d OdDbLine::endPoint() const {
  assertReadEnabled();
  return m_end;
}

void OdDbLine::setEndPoint(const OdGePoint3d& point) {
  assertWriteEnabled();
  m_end = point;
}

OdResult OdDbLine::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  m_start = matrix * m_start;
  m_end = matrix * m_end;
  m_thickness *= plane.normalScale();
  m_normal = plane.newNormal();
  return eOk;
}

OdResult OdDbLine::getStretchPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  points.append(m_start);
  points.append(m_end);
  return eOk;
}

OdResult OdDbLine::moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  assertWriteEnabled();
  for (int index : indices) {
    if (index == 0) m_start += offset;
    if (index == 1) m_end += offset;
  }
  return eOk;
}

OdResult OdDbLine::subGetGripPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  points.append(m_start);
  points.append(m_start + (m_end - m_start) * 0.5);
  points.append(m_end);
  return eOk;
}

OdResult OdDbLine::subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  assertWriteEnabled();
  bool moveStart = false;
  bool moveEnd = false;
  for (int index : indices) {
    moveStart = moveStart || index == 0 || index == 1;
    moveEnd = moveEnd || index == 1 || index == 2;
  }
  if (moveStart) m_start += offset;
  if (moveEnd) m_end += offset;
  return eOk;
}

OdResult OdDbLine::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  extents = OdGeExtents3d();
  extents.addPoint(m_start).addPoint(m_end);
  if (m_thickness != 0.0) {
    extents.addPoint(m_start + m_normal * m_thickness).addPoint(m_end + m_normal * m_thickness);
  }
  return eOk;
}

FieldTable OdDbLine::fieldTable() const {
  static constexpr auto kFields = FieldTable::compile({
      FieldTable::marker("AcDbLine"),
      FieldTable::field(39, FieldTable::kReal, offsetof(OdDbLine, m_thickness)).omittedAt(0.0),
      FieldTable::field(10, FieldTable::kPoint, offsetof(OdDbLine, m_start)),
      FieldTable::field(11, FieldTable::kPoint, offsetof(OdDbLine, m_end)),
      FieldTable::field(210, FieldTable::kNormal, offsetof(OdDbLine, m_normal)).omittedAt(),
  });
  return FieldTable(kFields, this);
}
