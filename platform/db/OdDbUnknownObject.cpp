// Unknown objects keep their items as read and file them back unchanged.
#include "platform/db/OdDbUnknownObject.h"

#include "platform/db/OdDbDwgFiler.h"
#include "platform/db/OdDbDxfFiler.h"
#include "platform/db/OdDbResBufFiler.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbUnknownObject, OdDbObject)

OdDbUnknownObject::OdDbUnknownObject() = default;

const OdString& OdDbUnknownObject::dxfRecordName() const {
  assertReadEnabled();
  return m_recordName;
}

void OdDbUnknownObject::setDxfRecordName(const OdString& name) {
  assertWriteEnabled();
  m_recordName = name;
}

OdResBufPtr OdDbUnknownObject::items() const {
  assertReadEnabled();
  return m_items.isNull() ? OdResBufPtr() : m_items->copyChain();
}

OdResult OdDbUnknownObject::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbObject::dwgInFields(filer);
  if (result != eOk) return result;
  m_recordName = filer->rdString();
  m_items = OdDbResBufFiler::readChain(filer);
  return eOk;
}

void OdDbUnknownObject::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbObject::dwgOutFields(filer);
  filer->wrString(m_recordName);
  OdDbResBufFiler::writeChain(filer, m_items.get());
}

OdResult OdDbUnknownObject::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbObject::dxfInFields(filer);
  if (result != eOk) return result;
  m_items = filer->rdItemsToEndOfObject();
  return filer->filerStatus();
}

void OdDbUnknownObject::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbObject::dxfOutFields(filer);
  for (const OdResBuf* item = m_items.get(); item; item = item->next().get())
    filer->writeRb(item);
}
