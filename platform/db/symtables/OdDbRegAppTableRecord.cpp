// Application record: a name only.
#include "platform/db/symtables/OdDbRegAppTableRecord.h"

#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbRegAppTableRecord, OdDbSymbolTableRecord, "APPID", "", 0)
