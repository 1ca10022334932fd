// The small steps on the drawing that the storage's operations share.
#include "storage/CJbCustBlockObjectAccess.h"

#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"

OdString CJbCustBlockObjectAccess::NameOf(const OdDbObjectId& blockId) {
  if (OdDbBlockTableRecordPtr block = Open<OdDbBlockTableRecord>(blockId, OdDb::kForRead))
    return block->getName();
  return blockId.isNull() ? OdString("(null)") : "#" + blockId.getHandle().ascii();
}

OdDbObjectId CJbCustBlockObjectAccess::CloneOf(const OdDbIdMapping& mapping,
                                               const OdDbObjectId& id) {
  OdDbIdPair pair(id);
  return mapping.compute(pair) ? pair.value() : OdDbObjectId::kNull;
}

OdDbObjectIdArray CJbCustBlockObjectAccess::DirectReferences(const OdDbObjectId& blockId) {
  OdDbObjectIdArray ids;
  if (OdDbBlockTableRecordPtr block = Open<OdDbBlockTableRecord>(blockId, OdDb::kForRead))
    block->getBlockReferenceIds(ids, true, false);
  return ids;
}

void CJbCustBlockObjectAccess::PointReferencesAt(const OdDbObjectIdArray& references,
                                                 const OdDbObjectId& blockId) {
  for (const OdDbObjectId& id : references) {
    if (OdDbBlockReferencePtr reference = Open<OdDbBlockReference>(id, OdDb::kForWrite))
      reference->setBlockTableRecord(blockId);
  }
}

void CJbCustBlockObjectAccess::Erase(const OdDbObjectId& id) {
  if (OdDbObjectPtr object = id.openObjectShared(OdDb::kForWrite)) object->erase(true);
}

void CJbCustBlockObjectAccess::EraseOwnedBy(const OdDbObjectId& ownerId, const OdDbObjectId& id) {
  OdDbObjectPtr object = id.openObjectShared(OdDb::kForRead);
  if (object.isNull() || object->ownerId() != ownerId) return;
  object->upgradeOpen();
  object->erase(true);
}
