// The table of layers.
#pragma once

#include "platform/db/symtables/OdDbLayerTableRecord.h"
#include "platform/db/symtables/OdDbSymbolTable.h"

class OdDbLayerTable : public OdDbSymbolTable {
  ODRX_DECLARE_MEMBERS(OdDbLayerTable);

 protected:
  OdRxClass* recordClass() const override;
};
using OdDbLayerTablePtr = OdSmartPtr<OdDbLayerTable>;
