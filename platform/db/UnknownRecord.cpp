#include "platform/db/UnknownRecord.h"

#include "platform/db/filers/OdDbResBufFiler.h"

OdResBufPtr UnknownRecord::items() const {
  return m_items.isNull() ? OdResBufPtr() : m_items->copyChain();
}

void UnknownRecord::dwgIn(OdDbDwgFiler* filer) {
  m_name = filer->rdString();
  m_items = OdDbResBufFiler::readChain(filer);
}

void UnknownRecord::dwgOut(OdDbDwgFiler* filer) const {
  filer->wrString(m_name);
  OdDbResBufFiler::writeChain(filer, m_items.get());
}

OdResult UnknownRecord::dxfIn(OdDbDxfFiler* filer) {
  m_items = filer->rdItemsToEndOfObject();
  return filer->filerStatus();
}

void UnknownRecord::dxfOut(OdDbDxfFiler* filer) const {
  for (const OdResBuf* item = m_items.get(); item; item = item->next().get())
    filer->writeRb(item);
}
