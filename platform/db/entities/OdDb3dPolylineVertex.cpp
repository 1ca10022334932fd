#include "platform/db/entities/OdDb3dPolylineVertex.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/entities/FieldTable.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDb3dPolylineVertex, OdDbEntity, "VERTEX", "", 0)

// Offsets into a class with a virtual table: GCC supports them for classes without virtual bases
// and says so by a warning.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

OdGePoint3d OdDb3dPolylineVertex::position() const {
  assertReadEnabled();
  return m_position;
}

void OdDb3dPolylineVertex::setPosition(const OdGePoint3d& position) {
  assertWriteEnabled();
  m_position = position;
}

int OdDb3dPolylineVertex::flags() const {
  assertReadEnabled();
  return m_flags;
}

void OdDb3dPolylineVertex::setFlags(int flags) {
  assertWriteEnabled();
  m_flags = flags & ~k3dPolylineVertex;
}

OdResult OdDb3dPolylineVertex::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eDegenerateGeometry;
  m_position = matrix * m_position;
  return eOk;
}

FieldTable OdDb3dPolylineVertex::fieldTable() const {
  static constexpr auto kFields = FieldTable::compile({
      FieldTable::marker("AcDbVertex"),
      FieldTable::marker("AcDb3dPolylineVertex"),
      FieldTable::field(10, FieldTable::kPoint, offsetof(OdDb3dPolylineVertex, m_position)),
      FieldTable::flags(70, offsetof(OdDb3dPolylineVertex, m_flags), k3dPolylineVertex),
  });
  return FieldTable(kFields, this);
}
