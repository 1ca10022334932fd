// Walks the records of a symbol table in table order.
#pragma once

#include "platform/db/OdDbObjectIterator.h"

class OdDbSymbolTableRecord;

class OdDbSymbolTableIterator : public OdDbObjectIterator {
  ODRX_DECLARE_MEMBERS(OdDbSymbolTableIterator);

 public:
  static OdSmartPtr<OdDbSymbolTableIterator> createObject(const OdDbObjectIdArray& ids,
                                                          bool atBeginning, bool skipErased);
  OdDbObjectId getRecordId() const { return objectId(); }
  OdSmartPtr<OdDbSymbolTableRecord> getRecord(OdDb::OpenMode mode = OdDb::kForRead,
                                              bool openErased = false) const;
};
using OdDbSymbolTableIteratorPtr = OdSmartPtr<OdDbSymbolTableIterator>;
