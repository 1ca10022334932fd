// The id of a database object: a small value that stays the same while the object lives in its
// database, whether the object is open, closed or erased. Ids compare by identity.
#pragma once

#include <functional>

#include "platform/base/OdArray.h"
#include "platform/db/OdDbHandle.h"
#include "platform/rx/OdSmartPtr.h"

class OdDbStub;
class OdDbDatabase;
class OdDbObject;
using OdDbObjectPtr = OdSmartPtr<OdDbObject>;

namespace OdDb {
enum OpenMode { kNotOpen = -1, kForRead = 0, kForWrite = 1, kForNotify = 2 };
}

class OdDbObjectId {
 public:
  OdDbObjectId() = default;
  explicit OdDbObjectId(OdDbStub* stub) noexcept : m_stub(stub) {}

  static const OdDbObjectId kNull;

  bool isNull() const noexcept { return m_stub == nullptr; }
  // Not null, and the object behind it has not been erased.
  bool isValid() const;
  bool isErased() const;
  OdDbHandle getHandle() const;
  OdDbDatabase* database() const;

  // Opens the object; see OdDbDatabase::openObject for the rules and errors.
  OdDbObjectPtr openObject(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;
  // Like openObject, but never null: fails with the open error instead.
  OdDbObjectPtr safeOpenObject(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;
  // Like openObject, reporting why it failed.
  OdResult openObject(OdDbObjectPtr& object, OdDb::OpenMode mode = OdDb::kForRead,
                      bool openErased = false) const;
  // Like openObject, except that an object already open for write is handed out as it is: for
  // the steps of one edit that reach an object an outer step of the same edit holds open.
  OdDbObjectPtr openObjectShared(OdDb::OpenMode mode = OdDb::kForRead,
                                 bool openErased = false) const;

  OdDbStub* stub() const noexcept { return m_stub; }

  friend bool operator==(const OdDbObjectId& a, const OdDbObjectId& b) noexcept {
    return a.m_stub == b.m_stub;
  }
  friend bool operator!=(const OdDbObjectId& a, const OdDbObjectId& b) noexcept {
    return a.m_stub != b.m_stub;
  }
  friend bool operator<(const OdDbObjectId& a, const OdDbObjectId& b) noexcept {
    return std::less<const OdDbStub*>()(a.m_stub, b.m_stub);
  }

 private:
  OdDbStub* m_stub = nullptr;
};

using OdDbObjectIdArray = OdArray<OdDbObjectId>;

template <>
struct std::hash<OdDbObjectId> {
  std::size_t operator()(const OdDbObjectId& id) const noexcept {
    return std::hash<const OdDbStub*>()(id.stub());
  }
};
