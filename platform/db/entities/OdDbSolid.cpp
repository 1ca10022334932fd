#include "platform/db/entities/OdDbSolid.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/ge/PlanarTransform.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbSolid, OdDbEntity, "SOLID", "", 0)

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

OdResult OdDbSolid::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult res = OdDbEntity::dwgInFields(filer);
  if (res != eOk) return res;
  for (OdGePoint3d& corner : m_corners)
    corner = filer->rdPoint3d();
  m_thickness = filer->rdDouble();
  m_normal = filer->rdVector3d();
  return eOk;
}

void OdDbSolid::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  for (const OdGePoint3d& corner : m_corners)
    filer->wrPoint3d(corner);
  filer->wrDouble(m_thickness);
  filer->wrVector3d(m_normal);
}

OdResult OdDbSolid::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult res = OdDbEntity::dxfInFields(filer);
  if (res != eOk) return res;
  EntityFiling::requireSubclass(filer, this, "AcDbTrace");
  OdGePoint3d ocs[4];
  bool hasFourth = false;
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    const int code = filer->nextItem();
    switch (code) {
      case 10:
      case 11:
      case 12:
      case 13:
        ocs[code - 10] = filer->rdPoint3d();
        hasFourth = hasFourth || code == 13;
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
  // A triangle may leave out its fourth corner.
  if (!hasFourth) ocs[3] = ocs[2];
  for (int i = 0; i < 4; ++i)
    m_corners[i] = EntityFiling::toWcs(m_normal, ocs[i]);
  return eOk;
}

void OdDbSolid::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbTrace");
  for (int i = 0; i < 4; ++i)
    filer->wrPoint3d(10 + i, EntityFiling::toOcs(m_normal, m_corners[i]));
  if (m_thickness != 0.0) filer->wrDouble(39, m_thickness);
  if (!m_normal.isEqualTo(OdGeVector3d::kZAxis)) filer->wrVector3d(210, m_normal);
}
