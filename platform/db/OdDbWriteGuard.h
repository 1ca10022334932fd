// Write access for the database's own bookkeeping (erasing what an owner owns, adding a clone to
// its owner): a closed object is opened for write and closed when the guard ends, so its
// reactors hear of the change; an object open in another mode is switched to write and back.
#pragma once

#include "platform/db/OdDbObject.h"

class OdDbWriteGuard {
 public:
  explicit OdDbWriteGuard(OdDbObject* object);
  // Holds nothing when the id has no object (null, not loaded or purged).
  explicit OdDbWriteGuard(const OdDbObjectId& id);
  ~OdDbWriteGuard();
  OdDbWriteGuard(const OdDbWriteGuard&) = delete;
  OdDbWriteGuard& operator=(const OdDbWriteGuard&) = delete;

  OdDbObject* get() const { return m_object.get(); }
  OdDbObject* operator->() const { return m_object.operator->(); }
  explicit operator bool() const { return !m_object.isNull(); }

 private:
  OdDbObjectPtr m_object;
  std::int8_t m_previousMode = OdDb::kNotOpen;
  bool m_switched = false;
};
