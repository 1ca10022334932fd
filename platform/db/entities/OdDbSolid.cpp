#include "platform/db/entities/OdDbSolid.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/entities/FieldTable.h"
#include "platform/ge/PlanarTransform.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbSolid, OdDbEntity, "SOLID", "", 0)

// Offsets into a class with a virtual table: GCC supports them for classes without virtual bases
// and says so by a warning.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

namespace {
void checkCorner(int index, const char* where) {
  if (index < 0 || index > 3)
    throw OdError(eInvalidIndex, std::string(where) + ": corner index must be 0 to 3");
}
}  // namespace

OdGePoint3d OdDbSolid::getPointAt(int index) const {
  checkCorner(index, "OdDbSolid::getPointAt");
  assertReadEnabled();
  return m_corners[index];
}

void OdDbSolid::setPointAt(int index, const OdGePoint3d& point) {
  checkCorner(index, "OdDbSolid::setPointAt");
  assertWriteEnabled();
  m_corners[index] = point;
}

OdResult OdDbSolid::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  for (OdGePoint3d& corner : m_corners)
    corner = matrix * corner;
  m_thickness *= plane.normalScale();
  m_normal = plane.newNormal();
  return eOk;
}

OdResult OdDbSolid::getStretchPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  for (const OdGePoint3d& corner : m_corners)
    points.append(corner);
  return eOk;
}

OdResult OdDbSolid::moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  assertWriteEnabled();
  for (int index : indices) {
    if (index >= 0 && index < 4) m_corners[index] += offset;
  }
  return eOk;
}

OdResult OdDbSolid::subGetGripPoints(OdGePoint3dArray& points) const {
  return getStretchPoints(points);
}

OdResult OdDbSolid::subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  return moveStretchPointsAt(indices, offset);
}

OdResult OdDbSolid::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  extents = OdGeExtents3d();
  for (const OdGePoint3d& corner : m_corners)
    extents.addPoint(corner);
  if (m_thickness != 0.0) extents.expandBy(m_normal * m_thickness);
  return eOk;
}

FieldTable OdDbSolid::fieldTable() const {
  static constexpr auto kFields = FieldTable::compile({
      FieldTable::marker("AcDbTrace"),
      FieldTable::field(10, FieldTable::kOcsPoint, offsetof(OdDbSolid, m_corners[0])),
      FieldTable::field(11, FieldTable::kOcsPoint, offsetof(OdDbSolid, m_corners[1])),
      FieldTable::field(12, FieldTable::kOcsPoint, offsetof(OdDbSolid, m_corners[2])),
      // A triangle may leave out its fourth corner.
      FieldTable::field(13, FieldTable::kOcsPoint, offsetof(OdDbSolid, m_corners[3]))
          .previousWhenAbsent(),
      FieldTable::field(39, FieldTable::kReal, offsetof(OdDbSolid, m_thickness)).omittedAt(0.0),
      FieldTable::field(210, FieldTable::kNormal, offsetof(OdDbSolid, m_normal)).omittedAt(),
  });
  return FieldTable(kFields, this);
}
