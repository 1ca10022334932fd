// Extension record.
#include "platform/db/OdDbXrecord.h"

#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/db/filers/OdDbResBufFiler.h"
#include "platform/resbuf/OdResBuf.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbXrecord, OdDbObject, "XRECORD", "", 0)

namespace {
bool isFraming(int code) {
  return code < 0 || code == 0 || code == 5 || code == 100 || code == 102 || code == 105 ||
         code == 1001;
}

}  // namespace

OdDbXrecord::OdDbXrecord() = default;

OdResBufPtr OdDbXrecord::rbChain() const {
  assertReadEnabled();
  return m_items.isNull() ? OdResBufPtr() : m_items->copyChain();
}

OdResult OdDbXrecord::setFromRbChain(const OdResBuf* items) {
  for (const OdResBuf* item = items; item; item = item->next().get())
    if (isFraming(item->restype())) return eInvalidResBuf;
  assertWriteEnabled();
  m_items = items ? items->copyChain() : OdResBufPtr();
  return eOk;
}

OdResult OdDbXrecord::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbObject::dwgInFields(filer);
  if (result != eOk) return result;
  m_cloning = filer->rdInt16();
  m_items = OdDbResBufFiler::readChain(filer);
  return eOk;
}

void OdDbXrecord::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbObject::dwgOutFields(filer);
  filer->wrInt16(m_cloning);
  OdDbResBufFiler::writeChain(filer, m_items.get());
}

OdResult OdDbXrecord::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbObject::dxfInFields(filer);
  if (result != eOk) return result;
  if (!filer->atSubclassData("AcDbXrecord"))
    throw OdError(eBadDxfSequence, describe().str() + ": AcDbXrecord expected at " +
                                       filer->describePosition().str());
  if (!filer->atEOF()) {
    if (filer->nextItem() == 280)
      m_cloning = filer->rdInt16();
    else
      filer->pushBackItem();
  }
  m_items = filer->rdItemsToEndOfObject();
  return filer->filerStatus();
}

void OdDbXrecord::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbObject::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbXrecord");
  filer->wrInt16(280, m_cloning);
  for (const OdResBuf* item = m_items.get(); item; item = item->next().get())
    filer->writeRb(item);
}
