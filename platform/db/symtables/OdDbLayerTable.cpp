// The table of layers.
#include "platform/db/symtables/OdDbLayerTable.h"

#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbLayerTable, OdDbSymbolTable)

OdRxClass* OdDbLayerTable::recordClass() const {
  return OdDbLayerTableRecord::desc();
}
