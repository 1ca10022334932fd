#include "platform/db/entities/OdDb2dVertex.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDb2dVertex, OdDbEntity, "VERTEX", "", 0)

OdGePoint3d OdDb2dVertex::position() const {
  assertReadEnabled();
  return m_position;
}

void OdDb2dVertex::setPosition(const OdGePoint3d& position) {
  assertWriteEnabled();
  m_position = position;
}

double OdDb2dVertex::bulge() const {
  assertReadEnabled();
  return m_bulge;
}

void OdDb2dVertex::setBulge(double bulge) {
  assertWriteEnabled();
  m_bulge = bulge;
}

double OdDb2dVertex::startWidth() const {
  assertReadEnabled();
  return m_startWidth;
}

void OdDb2dVertex::setStartWidth(double width) {
  assertWriteEnabled();
  m_startWidth = width;
}

double OdDb2dVertex::endWidth() const {
  assertReadEnabled();
  return m_endWidth;
}

void OdDb2dVertex::setEndWidth(double width) {
  assertWriteEnabled();
  m_endWidth = width;
}

double OdDb2dVertex::tangent() const {
  assertReadEnabled();
  return m_tangent;
}

void OdDb2dVertex::setTangent(double angle) {
  assertWriteEnabled();
  m_tangent = angle;
}

int OdDb2dVertex::flags() const {
  assertReadEnabled();
  return m_flags;
}

void OdDb2dVertex::setFlags(int flags) {
  assertWriteEnabled();
  m_flags = flags;
}

OdResult OdDb2dVertex::transformBy(const OdGeMatrix3d&) {
  return eNotApplicable;
}

OdResult OdDb2dVertex::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult res = OdDbEntity::dwgInFields(filer);
  if (res != eOk) return res;
  m_position = filer->rdPoint3d();
  m_bulge = filer->rdDouble();
  m_startWidth = filer->rdDouble();
  m_endWidth = filer->rdDouble();
  m_tangent = filer->rdDouble();
  m_flags = filer->rdInt16();
  return eOk;
}

void OdDb2dVertex::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrPoint3d(m_position);
  filer->wrDouble(m_bulge);
  filer->wrDouble(m_startWidth);
  filer->wrDouble(m_endWidth);
  filer->wrDouble(m_tangent);
  filer->wrInt16(static_cast<int16_t>(m_flags));
}

OdResult OdDb2dVertex::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult res = OdDbEntity::dxfInFields(filer);
  if (res != eOk) return res;
  EntityFiling::requireSubclass(filer, this, "AcDbVertex");
  EntityFiling::requireSubclass(filer, this, "AcDb2dVertex");
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    switch (filer->nextItem()) {
      case 10:
        m_position = filer->rdPoint3d();
        break;
      case 40:
        m_startWidth = filer->rdDouble();
        break;
      case 41:
        m_endWidth = filer->rdDouble();
        break;
      case 42:
        m_bulge = filer->rdDouble();
        break;
      case 50:
        m_tangent = EntityFiling::rdAngleDegrees(filer);
        break;
      case 70:
        m_flags = filer->rdInt16();
        break;
      default:
        break;
    }
  }
  return eOk;
}

void OdDb2dVertex::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbVertex");
  filer->wrSubclassMarker("AcDb2dVertex");
  filer->wrPoint3d(10, m_position);
  if (m_startWidth != 0.0) filer->wrDouble(40, m_startWidth);
  if (m_endWidth != 0.0) filer->wrDouble(41, m_endWidth);
  if (m_bulge != 0.0) filer->wrDouble(42, m_bulge);
  filer->wrInt16(70, static_cast<int16_t>(m_flags));
  if (m_flags & kTangentUsed) EntityFiling::wrAngleDegrees(filer, 50, m_tangent);
}
