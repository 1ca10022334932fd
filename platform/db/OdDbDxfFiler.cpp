// DXF filer: the checks every filer shares.
#include "platform/db/OdDbDxfFiler.h"

#include "platform/resbuf/OdResBuf.h"
#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbDxfFiler, OdRxObject)

bool OdDbDxfFiler::atEndOfObject() {
  if (atEOF()) return true;
  const int code = nextItem();
  pushBackItem();
  return code == 0 || code == 1001 || code < 0;
}

bool OdDbDxfFiler::atSubclassData(const OdString& className) {
  if (atEOF()) return false;
  if (nextItem() == 100 && rdString() == className) return true;
  pushBackItem();
  return false;
}

OdResBufPtr OdDbDxfFiler::rdItemsToEndOfObject() {
  OdResBufPtr head;
  OdResBuf* tail = nullptr;
  while (!atEOF() && !atEndOfObject()) {
    OdResBufPtr item;
    nextRb(item);
    if (item.isNull()) break;
    if (tail)
      tail->setNext(item.get());
    else
      head = item;
    tail = item.get();
  }
  return head;
}
