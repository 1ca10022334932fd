#include "platform/db/entities/OdDb3dPolylineVertex.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDb3dPolylineVertex, OdDbEntity, "VERTEX", "", 0)

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

OdResult OdDb3dPolylineVertex::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult res = OdDbEntity::dwgInFields(filer);
  if (res != eOk) return res;
  m_position = filer->rdPoint3d();
  m_flags = filer->rdInt16();
  return eOk;
}

void OdDb3dPolylineVertex::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrPoint3d(m_position);
  filer->wrInt16(static_cast<int16_t>(m_flags));
}

OdResult OdDb3dPolylineVertex::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult res = OdDbEntity::dxfInFields(filer);
  if (res != eOk) return res;
  EntityFiling::requireSubclass(filer, this, "AcDbVertex");
  EntityFiling::requireSubclass(filer, this, "AcDb3dPolylineVertex");
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    switch (filer->nextItem()) {
      case 10:
        m_position = filer->rdPoint3d();
        break;
      case 70:
        m_flags = filer->rdInt16() & ~k3dPolylineVertex;
        break;
      default:
        break;
    }
  }
  return eOk;
}

void OdDb3dPolylineVertex::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbVertex");
  filer->wrSubclassMarker("AcDb3dPolylineVertex");
  filer->wrPoint3d(10, m_position);
  filer->wrInt16(70, static_cast<int16_t>(m_flags | k3dPolylineVertex));
}
