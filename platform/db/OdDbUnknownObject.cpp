// Unknown objects keep their items as read and file them back unchanged.
#include "platform/db/OdDbUnknownObject.h"

#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbUnknownObject, OdDbObject)

OdDbUnknownObject::OdDbUnknownObject() = default;

const OdString& OdDbUnknownObject::dxfRecordName() const {
  assertReadEnabled();
  return m_record.name();
}

void OdDbUnknownObject::setDxfRecordName(const OdString& name) {
  assertWriteEnabled();
  m_record.setName(name);
}

OdResBufPtr OdDbUnknownObject::items() const {
  assertReadEnabled();
  return m_record.items();
}

OdResult OdDbUnknownObject::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbObject::dwgInFields(filer);
  if (result != eOk) return result;
  m_record.dwgIn(filer);
  return eOk;
}

void OdDbUnknownObject::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbObject::dwgOutFields(filer);
  m_record.dwgOut(filer);
}

OdResult OdDbUnknownObject::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbObject::dxfInFields(filer);
  if (result != eOk) return result;
  return m_record.dxfIn(filer);
}

void OdDbUnknownObject::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbObject::dxfOutFields(filer);
  m_record.dxfOut(filer);
}
