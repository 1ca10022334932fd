#include "platform/db/entities/OdDbPoint.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/PlanarTransform.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbPoint, OdDbEntity, "POINT", "", 0)

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

OdResult OdDbPoint::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult res = OdDbEntity::dwgInFields(filer);
  if (res != eOk) return res;
  m_position = filer->rdPoint3d();
  m_thickness = filer->rdDouble();
  m_normal = filer->rdVector3d();
  m_ecsRotation = filer->rdDouble();
  return eOk;
}

void OdDbPoint::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrPoint3d(m_position);
  filer->wrDouble(m_thickness);
  filer->wrVector3d(m_normal);
  filer->wrDouble(m_ecsRotation);
}

OdResult OdDbPoint::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult res = OdDbEntity::dxfInFields(filer);
  if (res != eOk) return res;
  EntityFiling::requireSubclass(filer, this, "AcDbPoint");
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    switch (filer->nextItem()) {
      case 10:
        m_position = filer->rdPoint3d();
        break;
      case 39:
        m_thickness = filer->rdDouble();
        break;
      case 210:
        m_normal = EntityFiling::rdNormal(filer);
        break;
      case 50:
        m_ecsRotation = OdGeAngle::normalize(EntityFiling::rdAngleDegrees(filer));
        break;
      default:
        break;
    }
  }
  return eOk;
}

void OdDbPoint::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbPoint");
  filer->wrPoint3d(10, m_position);
  if (m_thickness != 0.0) filer->wrDouble(39, m_thickness);
  if (!m_normal.isEqualTo(OdGeVector3d::kZAxis)) filer->wrVector3d(210, m_normal);
  if (m_ecsRotation != 0.0) EntityFiling::wrAngleDegrees(filer, 50, m_ecsRotation);
}
