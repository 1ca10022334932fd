// DXF filer: the checks every filer shares.
#include "platform/db/filers/OdDbDxfFiler.h"

#include "platform/resbuf/OdDxfCode.h"
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

void OdDbDxfFiler::nextRb(OdResBufPtr& item) {
  item.release();
  const int code = nextItem();
  if (code < 0) return;
  switch (OdDxfCode::_getType(code)) {
    case OdDxfCode::Bool:
      item = OdResBuf::newRb(code, rdBool());
      return;
    case OdDxfCode::Integer16:
      item = OdResBuf::newRb(code);
      item->setInt16(rdInt16());
      return;
    case OdDxfCode::Integer32:
      item = OdResBuf::newRb(code);
      item->setInt32(rdInt32());
      return;
    case OdDxfCode::Integer64:
      item = OdResBuf::newRb(code);
      item->setInt64(rdInt64());
      return;
    case OdDxfCode::Double:
      item = OdResBuf::newRb(code, rdDouble());
      return;
    case OdDxfCode::Point:
      item = OdResBuf::newRb(code, rdPoint3d());
      return;
    case OdDxfCode::BinaryChunk:
      item = OdResBuf::newRb(code);
      item->setBinaryChunk(rdBinaryChunk());
      return;
    case OdDxfCode::Handle:
      item = OdResBuf::newRb(code);
      item->setHandle(rdHandle());
      return;
    case OdDxfCode::ObjectId:
    case OdDxfCode::SoftPointerId:
    case OdDxfCode::HardPointerId:
    case OdDxfCode::SoftOwnershipId:
    case OdDxfCode::HardOwnershipId:
      item = OdResBuf::newRb(code, rdObjectId());
      return;
    case OdDxfCode::String:
    case OdDxfCode::Unknown:
      break;
  }
  item = OdResBuf::newRb(code, rdString());
}

void OdDbDxfFiler::writeRb(const OdResBuf* item) {
  if (!item) return;
  const int code = item->restype();
  switch (OdDxfCode::_getType(code)) {
    case OdDxfCode::Bool:
      wrBool(code, item->getBool());
      return;
    case OdDxfCode::Integer16:
      wrInt16(code, item->getInt16());
      return;
    case OdDxfCode::Integer32:
      wrInt32(code, item->getInt32());
      return;
    case OdDxfCode::Integer64:
      wrInt64(code, item->getInt64());
      return;
    case OdDxfCode::Double:
      wrDouble(code, item->getDouble());
      return;
    case OdDxfCode::Point:
      wrPoint3d(code, item->getPoint3d());
      return;
    case OdDxfCode::BinaryChunk: {
      const OdBinaryData& bytes = item->getBinaryChunk();
      wrBinaryChunk(code, bytes.asArrayPtr(), static_cast<std::uint32_t>(bytes.length()));
      return;
    }
    case OdDxfCode::Handle:
      wrHandle(code, item->getHandle());
      return;
    case OdDxfCode::ObjectId:
    case OdDxfCode::SoftPointerId:
    case OdDxfCode::HardPointerId:
    case OdDxfCode::SoftOwnershipId:
    case OdDxfCode::HardOwnershipId:
      wrObjectId(code, item->getObjectId());
      return;
    case OdDxfCode::String:
    case OdDxfCode::Unknown:
      break;
  }
  wrString(code, item->getString());
}
