// An application registered for extended data.
#pragma once

#include "platform/db/symtables/OdDbSymbolTableRecord.h"

class OdDbRegAppTableRecord : public OdDbSymbolTableRecord {
  ODRX_DECLARE_MEMBERS(OdDbRegAppTableRecord);

 protected:
  OdString recordSubclassMarker() const override { return "AcDbRegAppTableRecord"; }
};
using OdDbRegAppTableRecordPtr = OdSmartPtr<OdDbRegAppTableRecord>;
