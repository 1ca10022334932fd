// The database's record of one object: its handle, its database and the object itself. An object
// id is a pointer to its stub, so ids stay valid while the database lives, also after the object
// is erased or purged.
#pragma once

#include <cstdint>

#include "platform/db/OdDbHandle.h"

class OdDbDatabase;
class OdDbObject;

class OdDbStub {
 public:
  enum Flags : std::uint32_t {
    kErased = 1,
    // The object was removed for good; the id keeps answering as erased.
    kPermanentlyErased = 2,
    // Erased because its owner was erased: unerasing the owner brings it back.
    kErasedWithOwner = 4,
  };

  OdDbStub(OdDbDatabase* database, OdDbHandle handle) noexcept
      : m_handle(handle), m_database(database) {}

  OdDbHandle handle() const noexcept { return m_handle; }
  OdDbDatabase* database() const noexcept { return m_database; }
  // The object, or null for a handle known only by reference or a purged object.
  OdDbObject* object() const noexcept { return m_object; }
  void setObject(OdDbObject* object) noexcept { m_object = object; }

  bool isErased() const noexcept { return (m_flags & (kErased | kPermanentlyErased)) != 0; }
  bool hasFlag(Flags flag) const noexcept { return (m_flags & flag) != 0; }
  void setFlag(Flags flag, bool on) noexcept {
    if (on)
      m_flags |= flag;
    else
      m_flags &= ~static_cast<std::uint32_t>(flag);
  }

 private:
  OdDbHandle m_handle;
  OdDbDatabase* m_database;
  OdDbObject* m_object = nullptr;
  std::uint32_t m_flags = 0;
};
