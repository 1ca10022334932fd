// Base of the symbol tables (blocks, layers, applications): records kept in the order they were
// added and found by name without regard to case.
#pragma once

#include <map>

#include "platform/db/OdDbObject.h"
#include "platform/db/symtables/OdDbSymbolTableIterator.h"
#include "platform/db/symtables/OdDbSymbolTableRecord.h"

class OdDbSymbolTable : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbSymbolTable);

 public:
  OdDbSymbolTable();

  // The live record of name, or null (an erased record too with getErasedRecord).
  OdDbObjectId getAt(const OdString& name, bool getErasedRecord = false) const;
  // The record opened in mode, or null.
  OdDbSymbolTableRecordPtr getAt(const OdString& name, OdDb::OpenMode mode,
                                 bool getErasedRecord = false) const;
  bool has(const OdString& name) const { return !getAt(name).isNull(); }
  bool has(const OdDbObjectId& id) const;
  // Adds a record (free or of this database) and returns its id. Needs write access.
  // eWrongObjectType for a record of another table's kind, eDuplicateRecordName when the name is
  // taken, eInvalidInput for an invalid name.
  OdDbObjectId add(OdDbSymbolTableRecord* record);
  OdDbSymbolTableIteratorPtr newIterator(bool atBeginning = true, bool skipDeleted = true) const;
  // "*U" or "*D", optionally followed by digits, in any case.
  static bool isAnonymousBlockName(const OdString& name);
  // The live record of name, without open checks: for the database's own readers, which may
  // meet the table while someone else has it open for write.
  OdDbObjectId lookup(const OdString& name) const;
  // Record ids in table order.
  OdDbObjectIdArray recordIds(bool includeErased = false) const;

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  // Subclass marker and record count (70); the records file themselves.
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 protected:
  // The class of the records this table holds.
  virtual OdRxClass* recordClass() const = 0;
  // Whether "*U" and "*D" names are numbered here (the block table).
  virtual bool namesAnonymousBlocks() const { return false; }
  bool canOwnClone(const OdDbObject* child) const override;
  void appendPrimaryClone(OdDbObject* clone, const OdDbObject* source,
                          OdDbIdMapping& mapping) override;

 private:
  friend class OdDbDatabase;
  friend class OdDbSymbolTableRecord;
  friend class OdDbCloner;
  friend class OdDbEntity;

  // The name a record will carry here: anonymous block names resolved, uniqueness checked.
  OdString resolveName(const OdDbObjectId& recordId, const OdString& name) const;
  void rename(const OdDbObjectId& recordId, const OdString& oldName, const OdString& newName);
  void rebuildIndex() const;
  // Drops the memo of the last lookup; every change of the index calls it.
  void forgetLastLookup() const;
  // Whether name lookups find this record (a clone of a taken name does not).
  bool isIndexed(const OdDbObjectId& recordId) const;

  OdDbObjectIdArray m_records;
  mutable std::map<OdString, OdDbObjectId, OdStringILess> m_index;
  mutable bool m_indexStale = false;
  mutable OdString m_lastName;  // the last name looked up and found, exactly as asked
  mutable OdDbObjectId m_lastFound;
};
using OdDbSymbolTablePtr = OdSmartPtr<OdDbSymbolTable>;
