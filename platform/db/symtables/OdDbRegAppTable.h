// The table of applications that own extended data.
#pragma once

#include "platform/db/symtables/OdDbRegAppTableRecord.h"
#include "platform/db/symtables/OdDbSymbolTable.h"

class OdDbRegAppTable : public OdDbSymbolTable {
  ODRX_DECLARE_MEMBERS(OdDbRegAppTable);

 protected:
  OdRxClass* recordClass() const override;
};
using OdDbRegAppTablePtr = OdSmartPtr<OdDbRegAppTable>;
