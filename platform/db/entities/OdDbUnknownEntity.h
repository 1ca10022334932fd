// An entity of a class this system does not know (read from a file): the common entity
// properties as for any entity, and every item after them kept unchanged and written back as they
// were read. It has no geometry of its own to edit.
#pragma once

#include "platform/db/OdDbEntity.h"
#include "platform/db/UnknownRecord.h"

class OdDbUnknownEntity : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbUnknownEntity);

 public:
  OdDbUnknownEntity();

  // The record name the entity is filed under ("MULTILEADER", "DIMENSION").
  const OdString& dxfRecordName() const;
  void setDxfRecordName(const OdString& name);
  // The items after the common entity data (subclass markers included), first item first.
  OdResBufPtr items() const;

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 private:
  UnknownRecord m_record;
};
using OdDbUnknownEntityPtr = OdSmartPtr<OdDbUnknownEntity>;
