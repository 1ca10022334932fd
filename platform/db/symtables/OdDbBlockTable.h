// The table of block definitions; numbers anonymous block names.
#pragma once

#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbSymbolTable.h"

class OdDbBlockTable : public OdDbSymbolTable {
  ODRX_DECLARE_MEMBERS(OdDbBlockTable);

 protected:
  OdRxClass* recordClass() const override;
  bool namesAnonymousBlocks() const override { return true; }
};
using OdDbBlockTablePtr = OdSmartPtr<OdDbBlockTable>;
