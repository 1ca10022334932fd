// A block definition: entities in the order they were appended, a base point, and the list of
// the block references that show it.
#pragma once

#include "platform/db/OdDbObjectIterator.h"
#include "platform/db/symtables/OdDbSymbolTableRecord.h"
#include "platform/ge/OdGePoint3d.h"

class OdDbEntity;

class OdDbBlockTableRecord : public OdDbSymbolTableRecord {
  ODRX_DECLARE_MEMBERS(OdDbBlockTableRecord);

 public:
  OdDbBlockTableRecord();

  // Adds a free entity to this block (which must be in a database: eNoDatabase) and returns its
  // id. An entity already in this database and owned by nothing (a file reader's) is taken as it
  // is; eAlreadyInDb for any other entity already in a database. Needs write access.
  OdDbObjectId appendOdDbEntity(OdDbEntity* entity);
  // The entities in append order.
  OdDbObjectIteratorPtr newIterator(bool atBeginning = true, bool skipErased = true) const;

  // The live block references whose block is this one (directOnly), or also every reference of
  // a block that holds such a reference, at any depth (not directOnly). forceValidity rebuilds
  // the reference lists of the whole database first.
  OdResult getBlockReferenceIds(OdDbObjectIdArray& ids, bool directOnly = true,
                                bool forceValidity = false) const;

  OdGePoint3d origin() const;
  void setOrigin(const OdGePoint3d& origin);
  const OdString& comments() const;
  void setComments(const OdString& comments);
  // Named "*U..." or "*D...".
  bool isAnonymous() const;
  // *Model_Space or a *Paper_Space layout block.
  bool isLayout() const;
  bool hasAttributeDefinitions() const;
  bool explodable() const;
  void setExplodable(bool explodable);
  // The layout this block shows (model space and paper space blocks), or null.
  OdDbObjectId getLayoutId() const;
  void setLayoutId(const OdDbObjectId& layoutId);
  // Units of the block's content, as the database's INSUNITS.
  std::int16_t blockInsertUnits() const;
  void setBlockInsertUnits(std::int16_t units);
  // 0 any scale, 1 uniform scale only.
  std::int8_t blockScaling() const;
  void setBlockScaling(std::int8_t scaling);

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  // After the name and units (70): 340 layout, 280 explodable, 281 scaling. The BLOCK and ENDBLK
  // entities around the entities are the file's framing, written from origin() and comments().
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;
  void audit(OdDbAuditInfo* auditInfo) override;

 protected:
  OdString recordSubclassMarker() const override { return "AcDbBlockTableRecord"; }
  std::int16_t dxfFlags() const override;
  void setDxfFlags(std::int16_t flags) override;
  bool canOwnClone(const OdDbObject* child) const override;
  void appendPrimaryClone(OdDbObject* clone, const OdDbObject* source,
                          OdDbIdMapping& mapping) override;

 private:
  friend class OdDbDatabase;
  friend class OdDbBlockReference;
  static bool isLayoutName(const OdString& name);

  OdDbObjectIdArray m_entities;
  // References to this block: kept as references are added and repointed, checked when read.
  mutable OdDbObjectIdArray m_referenceIds;
  OdDbObjectId m_layoutId;
  OdGePoint3d m_origin;
  OdString m_comments;
  bool m_explodable = true;
  std::int8_t m_scaling = 0;
  std::int16_t m_units = 0;
};
using OdDbBlockTableRecordPtr = OdSmartPtr<OdDbBlockTableRecord>;
