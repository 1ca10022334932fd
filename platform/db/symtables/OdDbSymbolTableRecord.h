// Base of the records of a symbol table (blocks, layers, applications): a name that is unique in
// its table, compared without regard to case.
#pragma once

#include "platform/db/OdDbObject.h"

class OdDbSymbolTableRecord : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbSymbolTableRecord);

 public:
  OdDbSymbolTableRecord();

  const OdString& getName() const;
  // Renames the record. In a table the name must stay unique (eDuplicateRecordName); a block
  // named "*U" or "*D" is given the next anonymous name there. eInvalidInput for a name that a
  // table cannot hold.
  virtual void setName(const OdString& name);
  // Characters a record name may hold: not empty, none of <>/\":;?*|,=` except a leading '*'.
  static bool isValidName(const OdString& name);

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  // Writes the subclass marker and name (2) and flags (70); subclasses write theirs after.
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 protected:
  // The DXF subclass marker of the record kind ("AcDbLayerTableRecord").
  virtual OdString recordSubclassMarker() const = 0;
  // Record flags filed under 70; the block record keeps its anonymous bit here.
  virtual std::int16_t dxfFlags() const { return 0; }
  virtual void setDxfFlags(std::int16_t) {}
  // The name without open checks, for the database's own bookkeeping.
  const OdString& rawName() const { return m_name; }

 private:
  friend class OdDbSymbolTable;
  friend class OdDbDatabase;
  friend class OdDbCloner;
  friend class OdDbEntity;
  friend class OdDbBlockReference;
  OdString m_name;
};
using OdDbSymbolTableRecordPtr = OdSmartPtr<OdDbSymbolTableRecord>;
