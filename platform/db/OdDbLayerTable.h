// The table of layers.
#pragma once

#include "platform/db/OdDbLayerTableRecord.h"
#include "platform/db/OdDbSymbolTable.h"

class OdDbLayerTable : public OdDbSymbolTable {
  ODRX_DECLARE_MEMBERS(OdDbLayerTable);

 protected:
  OdRxClass* recordClass() const override;
};
using OdDbLayerTablePtr = OdSmartPtr<OdDbLayerTable>;
