// Extension record.
#include "platform/db/OdDbXrecord.h"

#include <string>
#include <vector>

#include "platform/db/OdDbDwgFiler.h"
#include "platform/db/OdDbDxfFiler.h"
#include "platform/resbuf/OdResBuf.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbXrecord, OdDbObject, "XRECORD", "", 0)

namespace {
bool isFraming(int code) {
  return code < 0 || code == 0 || code == 5 || code == 100 || code == 102 || code == 105 ||
         code == 1001;
}

OdResBufPtr copyChain(const OdResBuf* items) {
  OdResBufPtr head;
  OdResBuf* tail = nullptr;
  for (const OdResBuf* item = items; item; item = item->next().get()) {
    OdResBufPtr copy = OdResBuf::newRb(item->restype());
    copy->copyFrom(item);
    copy->setNext(nullptr);
    if (tail)
      tail->setNext(copy.get());
    else
      head = copy;
    tail = copy.get();
  }
  return head;
}

// How an item's value is filed, by group code.
enum class Kind { kString, kPoint, kDouble, kInt8, kInt16, kInt32, kInt64, kBool, kHandle, kBinary,
                  kSoftPointer, kHardPointer, kSoftOwner, kHardOwner };

Kind kindOf(int code) {
  if (code >= 330 && code <= 339) return Kind::kSoftPointer;
  if (code >= 340 && code <= 349) return Kind::kHardPointer;
  if (code >= 350 && code <= 359) return Kind::kSoftOwner;
  if (code >= 360 && code <= 369) return Kind::kHardOwner;
  if ((code >= 10 && code <= 18) || (code >= 110 && code <= 112) || (code >= 1010 && code <= 1013))
    return Kind::kPoint;
  if ((code >= 38 && code <= 59) || (code >= 140 && code <= 149) || (code >= 210 && code <= 239) ||
      (code >= 460 && code <= 469) || (code >= 1014 && code <= 1059))
    return Kind::kDouble;
  if ((code >= 60 && code <= 79) || (code >= 170 && code <= 179) || (code >= 270 && code <= 279) ||
      (code >= 370 && code <= 389) || (code >= 400 && code <= 409) || (code >= 1060 && code <= 1070))
    return Kind::kInt16;
  if ((code >= 90 && code <= 99) || (code >= 420 && code <= 459) || code == 1071)
    return Kind::kInt32;
  if (code >= 160 && code <= 169) return Kind::kInt64;
  if (code >= 280 && code <= 289) return Kind::kInt8;
  if (code >= 290 && code <= 299) return Kind::kBool;
  if ((code >= 320 && code <= 329) || code == 1005) return Kind::kHandle;
  if ((code >= 310 && code <= 319) || code == 1004) return Kind::kBinary;
  return Kind::kString;
}
}  // namespace

OdDbXrecord::OdDbXrecord() = default;

OdResBufPtr OdDbXrecord::rbChain() const {
  assertReadEnabled();
  return copyChain(m_items.get());
}

OdResult OdDbXrecord::setFromRbChain(const OdResBuf* items) {
  for (const OdResBuf* item = items; item; item = item->next().get())
    if (isFraming(item->restype())) return eInvalidResBuf;
  assertWriteEnabled();
  m_items = copyChain(items);
  return eOk;
}

OdResult OdDbXrecord::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbObject::dwgInFields(filer);
  if (result != eOk) return result;
  m_cloning = filer->rdInt16();
  const std::int32_t count = filer->rdInt32();
  OdResBufPtr head;
  OdResBuf* tail = nullptr;
  for (std::int32_t i = 0; i < count; ++i) {
    const int code = filer->rdInt16();
    OdResBufPtr item = OdResBuf::newRb(code);
    switch (kindOf(code)) {
      case Kind::kSoftPointer: item->setObjectId(filer->rdSoftPointerId()); break;
      case Kind::kHardPointer: item->setObjectId(filer->rdHardPointerId()); break;
      case Kind::kSoftOwner: item->setObjectId(filer->rdSoftOwnershipId()); break;
      case Kind::kHardOwner: item->setObjectId(filer->rdHardOwnershipId()); break;
      case Kind::kPoint: item->setPoint3d(filer->rdPoint3d()); break;
      case Kind::kDouble: item->setDouble(filer->rdDouble()); break;
      case Kind::kInt8: item->setInt8(filer->rdInt8()); break;
      case Kind::kInt16: item->setInt16(filer->rdInt16()); break;
      case Kind::kInt32: item->setInt32(filer->rdInt32()); break;
      case Kind::kInt64: item->setInt64(filer->rdInt64()); break;
      case Kind::kBool: item->setBool(filer->rdBool()); break;
      case Kind::kHandle: item->setHandle(filer->rdDbHandle()); break;
      case Kind::kBinary: {
        std::vector<unsigned char> bytes(static_cast<std::size_t>(std::max(filer->rdInt32(), 0)));
        filer->rdBytes(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
        item->setBinaryChunk(bytes);
        break;
      }
      case Kind::kString: item->setString(filer->rdString()); break;
    }
    if (tail)
      tail->setNext(item.get());
    else
      head = item;
    tail = item.get();
  }
  m_items = head;
  return eOk;
}

void OdDbXrecord::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbObject::dwgOutFields(filer);
  filer->wrInt16(m_cloning);
  std::int32_t count = 0;
  for (const OdResBuf* item = m_items.get(); item; item = item->next().get()) ++count;
  filer->wrInt32(count);
  for (const OdResBuf* item = m_items.get(); item; item = item->next().get()) {
    const int code = item->restype();
    filer->wrInt16(static_cast<std::int16_t>(code));
    switch (kindOf(code)) {
      case Kind::kSoftPointer: filer->wrSoftPointerId(item->getObjectId()); break;
      case Kind::kHardPointer: filer->wrHardPointerId(item->getObjectId()); break;
      case Kind::kSoftOwner: filer->wrSoftOwnershipId(item->getObjectId()); break;
      case Kind::kHardOwner: filer->wrHardOwnershipId(item->getObjectId()); break;
      case Kind::kPoint: filer->wrPoint3d(item->getPoint3d()); break;
      case Kind::kDouble: filer->wrDouble(item->getDouble()); break;
      case Kind::kInt8: filer->wrInt8(item->getInt8()); break;
      case Kind::kInt16: filer->wrInt16(item->getInt16()); break;
      case Kind::kInt32: filer->wrInt32(item->getInt32()); break;
      case Kind::kInt64: filer->wrInt64(item->getInt64()); break;
      case Kind::kBool: filer->wrBool(item->getBool()); break;
      case Kind::kHandle: filer->wrDbHandle(item->getHandle()); break;
      case Kind::kBinary: {
        const auto& bytes = item->getBinaryChunk();
        filer->wrInt32(static_cast<std::int32_t>(bytes.size()));
        filer->wrBytes(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
        break;
      }
      case Kind::kString: filer->wrString(item->getString()); break;
    }
  }
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
  OdResBufPtr head;
  OdResBuf* tail = nullptr;
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    OdResBufPtr item;
    filer->nextRb(item);
    if (item.isNull()) break;
    if (tail)
      tail->setNext(item.get());
    else
      head = item;
    tail = item.get();
  }
  m_items = head;
  return filer->filerStatus();
}

void OdDbXrecord::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbObject::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbXrecord");
  filer->wrInt16(280, m_cloning);
  for (const OdResBuf* item = m_items.get(); item; item = item->next().get()) filer->writeRb(item);
}
