// An object of a class this system does not know (read from a file): its record name and every
// item after the common object data, kept unchanged and written back as they were read.
#pragma once

#include "platform/db/OdDbObject.h"
#include "platform/db/UnknownRecord.h"

class OdDbUnknownObject : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbUnknownObject);

 public:
  OdDbUnknownObject();

  // The record name the object is filed under ("MLEADERSTYLE", "LAYOUT", "JB_BLOCK_GRAPH").
  const OdString& dxfRecordName() const;
  void setDxfRecordName(const OdString& name);
  // The items after the common object data (subclass markers included), first item first.
  OdResBufPtr items() const;

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 private:
  UnknownRecord m_record;
};
using OdDbUnknownObjectPtr = OdSmartPtr<OdDbUnknownObject>;
