// Walks a fixed list of object ids (the entities of a block, the records of a table), taken when
// the iterator was made, forwards or backwards, optionally over erased ones.
#pragma once

#include "platform/db/OdDbObject.h"

class OdDbEntity;

class OdDbObjectIterator : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbObjectIterator);

 public:
  OdDbObjectIterator();
  static OdSmartPtr<OdDbObjectIterator> createObject(const OdDbObjectIdArray& ids, bool atBeginning,
                                                     bool skipErased);

  void start(bool atBeginning = true, bool skipErased = true);
  bool done() const;
  void step(bool forward = true, bool skipErased = true);
  OdDbObjectId objectId() const;
  OdDbObjectPtr getObject(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;
  OdSmartPtr<OdDbEntity> entity(OdDb::OpenMode mode = OdDb::kForRead,
                                bool openErased = false) const;

 protected:
  void setIds(const OdDbObjectIdArray& ids) { m_ids = ids; }

 private:
  void skip(bool forward, bool skipErased);

  OdDbObjectIdArray m_ids;
  long m_position = 0;
};
using OdDbObjectIteratorPtr = OdSmartPtr<OdDbObjectIterator>;
