// The table of applications that own extended data.
#include "platform/db/symtables/OdDbRegAppTable.h"

#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbRegAppTable, OdDbSymbolTable)

OdRxClass* OdDbRegAppTable::recordClass() const {
  return OdDbRegAppTableRecord::desc();
}
