// The DXF filer every object files itself through: a stream of (group code, value) items. Reading
// moves item by item; a point is one item. File-backed and in-memory filers implement the same
// interface.
#pragma once

#include <cstdint>

#include "platform/base/OdBinaryData.h"
#include "platform/base/OdResult.h"
#include "platform/base/OdString.h"
#include "platform/db/OdDbObjectId.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/rx/OdRxObject.h"

class OdResBuf;
using OdResBufPtr = OdSmartPtr<OdResBuf>;

namespace OdDb {
// File format versions, numbered like the format's own version tags.
enum DwgVersion {
  vAC12 = 16,
  vAC14 = 21,
  vAC15 = 23,
  vAC18 = 25,
  vAC21 = 27,
  vAC24 = 29,
  vAC27 = 31,
  vAC32 = 33,
  kDHL_CURRENT = vAC32,
};
}  // namespace OdDb

class OdDbDxfFiler : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbDxfFiler);

 public:
  // Default precision of reals written to text: as many digits as round-trip a double.
  static constexpr int kDfltPrec = -1;

  virtual OdDbDatabase* database() const = 0;
  virtual OdDb::FilerType filerType() const = 0;
  virtual OdDb::DwgVersion dwgVersion() const { return OdDb::kDHL_CURRENT; }
  // eOk until a read fails; then the failure, until reset.
  virtual OdResult filerStatus() const = 0;
  virtual void resetFilerStatus() = 0;
  // Where the reader is, for messages: "line 120" or "item 7".
  virtual OdString describePosition() const = 0;

  // Reading. nextItem makes the next item current and returns its group code (-1 at the end);
  // the rd functions read the current item's value as the given type.
  virtual int nextItem() = 0;
  // The current item is read again by the next nextItem.
  virtual void pushBackItem() = 0;
  virtual bool atEOF() = 0;
  // True when the next item starts another object (group 0), the extended data (1001), or there
  // is none.
  virtual bool atEndOfObject();
  // True, consuming the marker, when the next item is the subclass marker 100 className.
  virtual bool atSubclassData(const OdString& className);
  virtual OdString rdString() = 0;
  virtual bool rdBool() = 0;
  virtual std::int8_t rdInt8() = 0;
  virtual std::int16_t rdInt16() = 0;
  virtual std::int32_t rdInt32() = 0;
  virtual std::int64_t rdInt64() = 0;
  virtual double rdDouble() = 0;
  virtual OdGePoint2d rdPoint2d() = 0;
  virtual OdGePoint3d rdPoint3d() = 0;
  virtual OdGeVector2d rdVector2d() = 0;
  virtual OdGeVector3d rdVector3d() = 0;
  virtual OdDbObjectId rdObjectId() = 0;
  virtual OdDbHandle rdHandle() = 0;
  virtual OdBinaryData rdBinaryChunk() = 0;
  // The next item as a result buffer (null at the end), read by its code's kind of value.
  virtual void nextRb(OdResBufPtr& item);
  // The items up to the end of the object (atEndOfObject) as a chain; null when there are none.
  OdResBufPtr rdItemsToEndOfObject();

  // Writing.
  virtual void wrString(int groupCode, const OdString& value) = 0;
  virtual void wrBool(int groupCode, bool value) = 0;
  virtual void wrInt8(int groupCode, std::int8_t value) = 0;
  virtual void wrInt16(int groupCode, std::int16_t value) = 0;
  virtual void wrInt32(int groupCode, std::int32_t value) = 0;
  virtual void wrInt64(int groupCode, std::int64_t value) = 0;
  virtual void wrDouble(int groupCode, double value, int precision = kDfltPrec) = 0;
  virtual void wrPoint2d(int groupCode, const OdGePoint2d& value, int precision = kDfltPrec) = 0;
  virtual void wrPoint3d(int groupCode, const OdGePoint3d& value, int precision = kDfltPrec) = 0;
  virtual void wrVector2d(int groupCode, const OdGeVector2d& value, int precision = kDfltPrec) = 0;
  virtual void wrVector3d(int groupCode, const OdGeVector3d& value, int precision = kDfltPrec) = 0;
  // An id is written as its handle; a null id as handle 0.
  virtual void wrObjectId(int groupCode, const OdDbObjectId& id) = 0;
  virtual void wrHandle(int groupCode, const OdDbHandle& value) = 0;
  virtual void wrBinaryChunk(int groupCode, const std::uint8_t* data, std::uint32_t size) = 0;
  // One item, written by its code's kind of value.
  virtual void writeRb(const OdResBuf* item);

  void wrSubclassMarker(const OdString& className) { wrString(100, className); }
  void wrName(int groupCode, const OdString& value) { wrString(groupCode, value); }
  void wrSoftPointerId(int groupCode, const OdDbObjectId& id) { wrObjectId(groupCode, id); }
  void wrHardPointerId(int groupCode, const OdDbObjectId& id) { wrObjectId(groupCode, id); }
  void wrSoftOwnershipId(int groupCode, const OdDbObjectId& id) { wrObjectId(groupCode, id); }
  void wrHardOwnershipId(int groupCode, const OdDbObjectId& id) { wrObjectId(groupCode, id); }
};
using OdDbDxfFilerPtr = OdSmartPtr<OdDbDxfFiler>;
