// Block definition.
#include "platform/db/symtables/OdDbBlockTableRecord.h"

#include <unordered_set>

#include "platform/db/OdDbAuditInfo.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbEntity.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/db/symtables/OdDbSymbolTable.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbBlockTableRecord, OdDbSymbolTableRecord, "BLOCK_RECORD", "", 0)

OdDbBlockTableRecord::OdDbBlockTableRecord() = default;

OdDbObjectId OdDbBlockTableRecord::appendOdDbEntity(OdDbEntity* entity) {
  if (!entity) throw OdError(eNullPtr, describe().str() + ": appendOdDbEntity without an entity");
  assertWriteEnabled();
  if (!isDBRO()) throw OdError(eNoDatabase, describe().str() + " is not in a database");
  if (entity->isDBRO()) {
    const OdDbObjectId id = entity->objectId();
    if (entity->database() != database() || !entity->ownerId().isNull())
      throw OdError(eAlreadyInDb, entity->describe().str() + " is already in a database");
    entity->setOwnerId(objectId());
    m_entities.append(id);
    return id;
  }
  const OdDbObjectId id = database()->addOdDbObject(entity, objectId());
  m_entities.append(id);
  return id;
}

OdDbObjectIteratorPtr OdDbBlockTableRecord::newIterator(bool atBeginning, bool skipErased) const {
  assertReadEnabled();
  return OdDbObjectIterator::createObject(m_entities, atBeginning, skipErased);
}

OdResult OdDbBlockTableRecord::getBlockReferenceIds(OdDbObjectIdArray& ids, bool directOnly,
                                                    bool forceValidity) const {
  assertReadEnabled();
  ids.clear();
  OdDbDatabase* db = database();
  if (!db) return eNoDatabase;
  if (forceValidity || db->blockReferenceListsStale()) db->rebuildBlockReferenceLists();
  OdDbObjectIdArray blocks{objectId()};
  std::unordered_set<OdDbObjectId> seen;
  for (OdDbObjectIdArray::size_type next = 0; next < blocks.length(); ++next) {
    const OdDbObject* object = blocks[next].stub()->object();
    const auto* block = static_cast<const OdDbBlockTableRecord*>(object);
    for (const OdDbObjectId& refId : block->m_referenceIds) {
      const OdDbObject* found = refId.stub()->object();
      if (!found || refId.isErased() || !found->isKindOf(OdDbBlockReference::desc())) continue;
      if (static_cast<const OdDbBlockReference*>(found)->m_blockId != blocks[next]) continue;
      if (!seen.insert(refId).second) continue;
      ids.append(refId);
      if (directOnly) continue;
      // A reference inside another block shows this one wherever that block is referenced.
      const OdDbObjectId owner = found->ownerId();
      const OdDbObject* ownerObject = owner.isNull() ? nullptr : owner.stub()->object();
      if (ownerObject && ownerObject->isKindOf(desc()) && !owner.isErased() &&
          !isLayoutName(static_cast<const OdDbBlockTableRecord*>(ownerObject)->rawName()) &&
          !blocks.contains(owner))
        blocks.append(owner);
    }
  }
  return eOk;
}

OdGePoint3d OdDbBlockTableRecord::origin() const {
  assertReadEnabled();
  return m_origin;
}

void OdDbBlockTableRecord::setOrigin(const OdGePoint3d& origin) {
  if (origin.x == m_origin.x && origin.y == m_origin.y && origin.z == m_origin.z) return;
  assertWriteEnabled();
  m_origin = origin;
}

const OdString& OdDbBlockTableRecord::comments() const {
  assertReadEnabled();
  return m_comments;
}

void OdDbBlockTableRecord::setComments(const OdString& comments) {
  if (comments == m_comments) return;
  assertWriteEnabled();
  m_comments = comments;
}

bool OdDbBlockTableRecord::isAnonymous() const {
  return OdDbSymbolTable::isAnonymousBlockName(getName());
}

bool OdDbBlockTableRecord::isLayout() const {
  return isLayoutName(getName());
}

bool OdDbBlockTableRecord::isLayoutName(const OdString& name) {
  return name.iEquals("*Model_Space") || name.left(12).iEquals("*Paper_Space");
}

bool OdDbBlockTableRecord::hasAttributeDefinitions() const {
  assertReadEnabled();
  for (const OdDbObjectId& id : m_entities) {
    const OdDbObject* entity = id.stub()->object();
    if (entity && !id.isErased() && entity->isKindOf(OdDbAttributeDefinition::desc())) return true;
  }
  return false;
}

bool OdDbBlockTableRecord::explodable() const {
  assertReadEnabled();
  return m_explodable;
}

void OdDbBlockTableRecord::setExplodable(bool explodable) {
  if (explodable == m_explodable) return;
  assertWriteEnabled();
  m_explodable = explodable;
}

OdDbObjectId OdDbBlockTableRecord::getLayoutId() const {
  assertReadEnabled();
  return m_layoutId;
}

void OdDbBlockTableRecord::setLayoutId(const OdDbObjectId& layoutId) {
  if (layoutId == m_layoutId) return;
  assertWriteEnabled();
  m_layoutId = layoutId;
}

std::int16_t OdDbBlockTableRecord::blockInsertUnits() const {
  assertReadEnabled();
  return m_units;
}

void OdDbBlockTableRecord::setBlockInsertUnits(std::int16_t units) {
  if (units == m_units) return;
  assertWriteEnabled();
  m_units = units;
}

std::int8_t OdDbBlockTableRecord::blockScaling() const {
  assertReadEnabled();
  return m_scaling;
}

void OdDbBlockTableRecord::setBlockScaling(std::int8_t scaling) {
  if (scaling == m_scaling) return;
  if (scaling != 0 && scaling != 1)
    throw OdError(eInvalidInput, describe().str() + ": block scaling is 0 (any) or 1 (uniform)");
  assertWriteEnabled();
  m_scaling = scaling;
}

// A block record files its units under 70; the block flags go with the BLOCK entity of the file.
std::int16_t OdDbBlockTableRecord::dxfFlags() const {
  return m_units;
}

void OdDbBlockTableRecord::setDxfFlags(std::int16_t flags) {
  m_units = flags;
}

bool OdDbBlockTableRecord::canOwnClone(const OdDbObject* child) const {
  return child && child->isKindOf(OdDbEntity::desc()) && !child->isKindOf(OdDbAttribute::desc());
}

void OdDbBlockTableRecord::appendPrimaryClone(OdDbObject* clone, const OdDbObject*,
                                              OdDbIdMapping&) {
  m_entities.append(clone->objectId());
}

OdResult OdDbBlockTableRecord::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbSymbolTableRecord::dwgInFields(filer);
  if (result != eOk) return result;
  m_origin = filer->rdPoint3d();
  m_comments = filer->rdString();
  m_explodable = filer->rdBool();
  m_scaling = filer->rdInt8();
  m_units = filer->rdInt16();
  m_layoutId = filer->rdSoftPointerId();
  OdDbObjectIdArray entities;
  const std::int32_t count = filer->rdInt32();
  for (std::int32_t i = 0; i < count; ++i) {
    const OdDbObjectId id = filer->rdHardOwnershipId();
    if (!id.isNull()) entities.append(id);
  }
  m_entities = entities;
  return eOk;
}

void OdDbBlockTableRecord::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbSymbolTableRecord::dwgOutFields(filer);
  filer->wrPoint3d(m_origin);
  filer->wrString(m_comments);
  filer->wrBool(m_explodable);
  filer->wrInt8(m_scaling);
  filer->wrInt16(m_units);
  filer->wrSoftPointerId(m_layoutId);
  const bool skipErased = filer->filerType() == OdDb::kFileFiler;
  std::int32_t count = 0;
  for (const OdDbObjectId& id : m_entities)
    if (!skipErased || !id.isErased()) ++count;
  filer->wrInt32(count);
  for (const OdDbObjectId& id : m_entities)
    if (!skipErased || !id.isErased()) filer->wrHardOwnershipId(id);
}

OdResult OdDbBlockTableRecord::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbSymbolTableRecord::dxfInFields(filer);
  if (result != eOk) return result;
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    switch (filer->nextItem()) {
      case 340:
        m_layoutId = filer->rdObjectId();
        break;
      case 280:
        m_explodable = filer->rdInt8() != 0;
        break;
      case 281:
        m_scaling = filer->rdInt8();
        break;
      default:
        // The preview image and the like are not kept.
        break;
    }
  }
  return filer->filerStatus();
}

void OdDbBlockTableRecord::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbSymbolTableRecord::dxfOutFields(filer);
  filer->wrHardPointerId(340, m_layoutId);
  filer->wrInt8(280, m_explodable ? 1 : 0);
  filer->wrInt8(281, m_scaling);
}

void OdDbBlockTableRecord::audit(OdDbAuditInfo* auditInfo) {
  OdDbSymbolTableRecord::audit(auditInfo);
  OdDbObjectIdArray kept;
  for (const OdDbObjectId& id : m_entities) {
    const OdDbObject* entity = id.stub()->object();
    if (entity && entity->ownerId() == objectId() && entity->isKindOf(OdDbEntity::desc())) {
      kept.append(id);
      continue;
    }
    auditInfo->errorsFound(1);
    auditInfo->printError(describe(), "entity " + id.getHandle().ascii().str(),
                          "an entity owned by this block", "removed from the block");
  }
  if (kept.length() != m_entities.length() && auditInfo->fixErrors()) {
    auditInfo->errorsFixed(static_cast<int>(m_entities.length() - kept.length()));
    assertWriteEnabled();
    m_entities = kept;
  }
}
