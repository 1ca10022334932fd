#include "platform/db/entities/OdDbLine.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/ge/PlanarTransform.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbLine, OdDbEntity, "LINE", "", 0)

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

OdResult OdDbLine::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult res = OdDbEntity::dwgInFields(filer);
  if (res != eOk) return res;
  m_start = filer->rdPoint3d();
  m_end = filer->rdPoint3d();
  m_thickness = filer->rdDouble();
  m_normal = filer->rdVector3d();
  return eOk;
}

void OdDbLine::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrPoint3d(m_start);
  filer->wrPoint3d(m_end);
  filer->wrDouble(m_thickness);
  filer->wrVector3d(m_normal);
}

OdResult OdDbLine::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult res = OdDbEntity::dxfInFields(filer);
  if (res != eOk) return res;
  EntityFiling::requireSubclass(filer, this, "AcDbLine");
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    switch (filer->nextItem()) {
      case 10:
        m_start = filer->rdPoint3d();
        break;
      case 11:
        m_end = filer->rdPoint3d();
        break;
      case 39:
        m_thickness = filer->rdDouble();
        break;
      case 210:
        m_normal = EntityFiling::rdNormal(filer);
        break;
      default:
        break;
    }
  }
  return eOk;
}

void OdDbLine::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbLine");
  if (m_thickness != 0.0) filer->wrDouble(39, m_thickness);
  filer->wrPoint3d(10, m_start);
  filer->wrPoint3d(11, m_end);
  if (!m_normal.isEqualTo(OdGeVector3d::kZAxis)) filer->wrVector3d(210, m_normal);
}
