// The binary filer every database object files itself through: typed reads and writes of values
// and of object ids by reference kind. Copying, deep clone, id translation and id collection all
// run through it.
#pragma once

#include <cstdint>

#include "platform/base/OdResult.h"
#include "platform/base/OdString.h"
#include "platform/db/OdDbObjectId.h"
#include "platform/rx/OdRxObject.h"

class OdGePoint2d;
class OdGePoint3d;
class OdGeVector2d;
class OdGeVector3d;
class OdGeScale3d;

namespace OdDb {
// What a filing pass is for; objects file some fields only for some kinds.
enum FilerType {
  kFileFiler = 0,
  kCopyFiler = 1,
  kUndoFiler = 2,
  kBagFiler = 3,
  kIdXlateFiler = 4,
  kPageFiler = 5,
  kDeepCloneFiler = 6,
  kIdFiler = 7,
  kPurgeFiler = 8,
  kWblockCloneFiler = 9,
};
// How an object refers to another: owners clone and erase what they own; pointers are translated.
enum ReferenceType {
  kSoftPointerRef = 0,
  kHardPointerRef = 1,
  kSoftOwnershipRef = 2,
  kHardOwnershipRef = 3,
};
enum FilerSeekType { kSeekFromStart = 0, kSeekFromCurrent = 1, kSeekFromEnd = 2 };
}  // namespace OdDb

class OdDbDwgFiler : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbDwgFiler);

 public:
  virtual OdDbDatabase* database() const = 0;
  virtual OdDb::FilerType filerType() const = 0;
  // eOk until a read or write fails; then the failure, until reset.
  virtual OdResult filerStatus() const = 0;
  virtual void resetFilerStatus() = 0;
  virtual void seek(std::int64_t offset, OdDb::FilerSeekType seekType) = 0;
  virtual std::uint64_t tell() const = 0;

  virtual bool rdBool() = 0;
  virtual std::int8_t rdInt8() = 0;
  virtual std::int16_t rdInt16() = 0;
  virtual std::int32_t rdInt32() = 0;
  virtual std::int64_t rdInt64() = 0;
  virtual double rdDouble() = 0;
  virtual OdString rdString() = 0;
  virtual void rdBytes(void* buffer, std::uint32_t numBytes) = 0;
  virtual OdDbHandle rdDbHandle() = 0;
  virtual OdDbObjectId rdSoftOwnershipId() = 0;
  virtual OdDbObjectId rdHardOwnershipId() = 0;
  virtual OdDbObjectId rdSoftPointerId() = 0;
  virtual OdDbObjectId rdHardPointerId() = 0;

  virtual void wrBool(bool value) = 0;
  virtual void wrInt8(std::int8_t value) = 0;
  virtual void wrInt16(std::int16_t value) = 0;
  virtual void wrInt32(std::int32_t value) = 0;
  virtual void wrInt64(std::int64_t value) = 0;
  virtual void wrDouble(double value) = 0;
  virtual void wrString(const OdString& value) = 0;
  virtual void wrBytes(const void* buffer, std::uint32_t numBytes) = 0;
  virtual void wrDbHandle(const OdDbHandle& value) = 0;
  virtual void wrSoftOwnershipId(const OdDbObjectId& id) = 0;
  virtual void wrHardOwnershipId(const OdDbObjectId& id) = 0;
  virtual void wrSoftPointerId(const OdDbObjectId& id) = 0;
  virtual void wrHardPointerId(const OdDbObjectId& id) = 0;

  // Geometric values, filed as their coordinates.
  virtual OdGePoint2d rdPoint2d();
  virtual OdGePoint3d rdPoint3d();
  virtual OdGeVector2d rdVector2d();
  virtual OdGeVector3d rdVector3d();
  virtual OdGeScale3d rdScale3d();
  virtual void wrPoint2d(const OdGePoint2d& value);
  virtual void wrPoint3d(const OdGePoint3d& value);
  virtual void wrVector2d(const OdGeVector2d& value);
  virtual void wrVector3d(const OdGeVector3d& value);
  virtual void wrScale3d(const OdGeScale3d& value);

  // Reads and writes an id of the given reference kind.
  OdDbObjectId rdId(OdDb::ReferenceType type);
  void wrId(const OdDbObjectId& id, OdDb::ReferenceType type);
};
using OdDbDwgFilerPtr = OdSmartPtr<OdDbDwgFiler>;
