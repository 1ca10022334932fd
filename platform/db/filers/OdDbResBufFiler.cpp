// Binary filing of result-buffer items.
#include "platform/db/filers/OdDbResBufFiler.h"

#include <algorithm>
#include <string>

#include "platform/resbuf/OdDxfCode.h"

void OdDbResBufFiler::write(OdDbDwgFiler* filer, const OdResBuf* item) {
  const int code = item->restype();
  filer->wrInt16(static_cast<std::int16_t>(code));
  switch (OdDxfCode::_getType(code)) {
    case OdDxfCode::SoftPointerId:
      filer->wrSoftPointerId(item->getObjectId());
      break;
    case OdDxfCode::HardPointerId:
      filer->wrHardPointerId(item->getObjectId());
      break;
    case OdDxfCode::SoftOwnershipId:
      filer->wrSoftOwnershipId(item->getObjectId());
      break;
    case OdDxfCode::HardOwnershipId:
      filer->wrHardOwnershipId(item->getObjectId());
      break;
    case OdDxfCode::ObjectId:
      filer->wrSoftPointerId(item->getObjectId());
      break;
    case OdDxfCode::Point:
      filer->wrPoint3d(item->getPoint3d());
      break;
    case OdDxfCode::Double:
      filer->wrDouble(item->getDouble());
      break;
    case OdDxfCode::Integer16:
      filer->wrInt16(item->getInt16());
      break;
    case OdDxfCode::Integer32:
      filer->wrInt32(item->getInt32());
      break;
    case OdDxfCode::Integer64:
      filer->wrInt64(item->getInt64());
      break;
    case OdDxfCode::Bool:
      filer->wrBool(item->getBool());
      break;
    case OdDxfCode::Handle:
      filer->wrDbHandle(item->getHandle());
      break;
    case OdDxfCode::BinaryChunk: {
      const OdBinaryData& bytes = item->getBinaryChunk();
      filer->wrInt32(static_cast<std::int32_t>(bytes.length()));
      filer->wrBytes(bytes.getPtr(), bytes.length());
      break;
    }
    case OdDxfCode::String:
      filer->wrString(item->getString());
      break;
    case OdDxfCode::Unknown:
      break;
  }
}

OdResBufPtr OdDbResBufFiler::read(OdDbDwgFiler* filer) {
  const int code = filer->rdInt16();
  OdResBufPtr item = OdResBuf::newRb(code);
  switch (OdDxfCode::_getType(code)) {
    case OdDxfCode::SoftPointerId:
      item->setObjectId(filer->rdSoftPointerId());
      break;
    case OdDxfCode::HardPointerId:
      item->setObjectId(filer->rdHardPointerId());
      break;
    case OdDxfCode::SoftOwnershipId:
      item->setObjectId(filer->rdSoftOwnershipId());
      break;
    case OdDxfCode::HardOwnershipId:
      item->setObjectId(filer->rdHardOwnershipId());
      break;
    case OdDxfCode::ObjectId:
      item->setObjectId(filer->rdSoftPointerId());
      break;
    case OdDxfCode::Point:
      item->setPoint3d(filer->rdPoint3d());
      break;
    case OdDxfCode::Double:
      item->setDouble(filer->rdDouble());
      break;
    case OdDxfCode::Integer16:
      item->setInt16(filer->rdInt16());
      break;
    case OdDxfCode::Integer32:
      item->setInt32(filer->rdInt32());
      break;
    case OdDxfCode::Integer64:
      item->setInt64(filer->rdInt64());
      break;
    case OdDxfCode::Bool:
      item->setBool(filer->rdBool());
      break;
    case OdDxfCode::Handle:
      item->setHandle(filer->rdDbHandle());
      break;
    case OdDxfCode::BinaryChunk: {
      OdBinaryData bytes;
      bytes.resize(static_cast<OdBinaryData::size_type>(std::max(filer->rdInt32(), 0)), 0);
      filer->rdBytes(bytes.asArrayPtr(), bytes.length());
      item->setBinaryChunk(bytes);
      break;
    }
    case OdDxfCode::String:
      item->setString(filer->rdString());
      break;
    case OdDxfCode::Unknown:
      break;
  }
  return item;
}

void OdDbResBufFiler::writeChain(OdDbDwgFiler* filer, const OdResBuf* chain) {
  std::int32_t count = 0;
  for (const OdResBuf* item = chain; item; item = item->next().get())
    ++count;
  filer->wrInt32(count);
  for (const OdResBuf* item = chain; item; item = item->next().get())
    write(filer, item);
}

OdResBufPtr OdDbResBufFiler::readChain(OdDbDwgFiler* filer) {
  const std::int32_t count = filer->rdInt32();
  OdResBufPtr head;
  OdResBuf* tail = nullptr;
  for (std::int32_t i = 0; i < count; ++i) {
    OdResBufPtr item = read(filer);
    if (tail)
      tail->setNext(item.get());
    else
      head = item;
    tail = item.get();
  }
  return head;
}
