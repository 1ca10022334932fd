// Unknown entitys keep their items as read and file them back unchanged.
#include "platform/db/OdDbUnknownEntity.h"

#include "platform/db/OdDbDwgFiler.h"
#include "platform/db/OdDbDxfFiler.h"
#include "platform/db/OdDbResBufFiler.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbUnknownEntity, OdDbEntity)

OdDbUnknownEntity::OdDbUnknownEntity() = default;

const OdString& OdDbUnknownEntity::dxfRecordName() const {
  assertReadEnabled();
  return m_recordName;
}

void OdDbUnknownEntity::setDxfRecordName(const OdString& name) {
  assertWriteEnabled();
  m_recordName = name;
}

OdResBufPtr OdDbUnknownEntity::items() const {
  assertReadEnabled();
  return m_items.isNull() ? OdResBufPtr() : m_items->copyChain();
}

OdResult OdDbUnknownEntity::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbEntity::dwgInFields(filer);
  if (result != eOk) return result;
  m_recordName = filer->rdString();
  m_items = OdDbResBufFiler::readChain(filer);
  return eOk;
}

void OdDbUnknownEntity::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrString(m_recordName);
  OdDbResBufFiler::writeChain(filer, m_items.get());
}

OdResult OdDbUnknownEntity::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbEntity::dxfInFields(filer);
  if (result != eOk) return result;
  m_items = filer->rdItemsToEndOfObject();
  return filer->filerStatus();
}

void OdDbUnknownEntity::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  for (const OdResBuf* item = m_items.get(); item; item = item->next().get())
    filer->writeRb(item);
}
