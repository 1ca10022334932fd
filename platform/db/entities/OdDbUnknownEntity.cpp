// Unknown entities keep their items as read and file them back unchanged.
#include "platform/db/entities/OdDbUnknownEntity.h"

#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbUnknownEntity, OdDbEntity)

OdDbUnknownEntity::OdDbUnknownEntity() = default;

const OdString& OdDbUnknownEntity::dxfRecordName() const {
  assertReadEnabled();
  return m_record.name();
}

void OdDbUnknownEntity::setDxfRecordName(const OdString& name) {
  assertWriteEnabled();
  m_record.setName(name);
}

OdResBufPtr OdDbUnknownEntity::items() const {
  assertReadEnabled();
  return m_record.items();
}

OdResult OdDbUnknownEntity::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbEntity::dwgInFields(filer);
  if (result != eOk) return result;
  m_record.dwgIn(filer);
  return eOk;
}

void OdDbUnknownEntity::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  m_record.dwgOut(filer);
}

OdResult OdDbUnknownEntity::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbEntity::dxfInFields(filer);
  if (result != eOk) return result;
  return m_record.dxfIn(filer);
}

void OdDbUnknownEntity::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  m_record.dxfOut(filer);
}
