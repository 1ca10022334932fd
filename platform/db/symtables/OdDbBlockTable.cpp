// The table of block definitions; numbers anonymous block names.
#include "platform/db/symtables/OdDbBlockTable.h"

#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbBlockTable, OdDbSymbolTable)

OdRxClass* OdDbBlockTable::recordClass() const {
  return OdDbBlockTableRecord::desc();
}
