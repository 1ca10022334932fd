// Iterator over the records of a symbol table.
#include "platform/db/symtables/OdDbSymbolTableIterator.h"

#include "platform/db/symtables/OdDbSymbolTableRecord.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbSymbolTableIterator, OdDbObjectIterator)

OdDbSymbolTableIteratorPtr OdDbSymbolTableIterator::createObject(const OdDbObjectIdArray& ids,
                                                                 bool atBeginning,
                                                                 bool skipErased) {
  OdDbSymbolTableIteratorPtr iterator = createObject();
  iterator->setIds(ids);
  iterator->start(atBeginning, skipErased);
  return iterator;
}

OdDbSymbolTableRecordPtr OdDbSymbolTableIterator::getRecord(OdDb::OpenMode mode,
                                                            bool openErased) const {
  return OdDbSymbolTableRecordPtr(getObject(mode, openErased));
}
