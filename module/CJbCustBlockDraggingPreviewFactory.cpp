#include "module/CJbCustBlockDraggingPreviewFactory.h"

#include "module/CJbCustBlockGraphLookup.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"

bool CJbCustBlockDraggingPreviewFactory::GetPreviewEntities(const OdDbEntity* dragged,
                                                            OdArray<OdDbObjectId>& entities) const {
  const OdSmartPtr<OdDbBlockReference> reference = OdDbBlockReference::cast(dragged);
  if (reference.isNull()) return false;
  const OdDbObjectId blockId = reference->blockTableRecord();
  if (CJbCustBlockGraphLookup::FindGraph(blockId).isNull()) return false;
  OdDbObjectPtr object;
  if (blockId.openObject(object) != eOk) return false;
  const OdSmartPtr<OdDbBlockTableRecord> block = OdDbBlockTableRecord::cast(object.get());
  if (block.isNull()) return false;
  for (OdDbObjectIteratorPtr it = block->newIterator(); !it->done(); it->step()) {
    const OdDbEntityPtr entity = it->entity();
    if (!entity.isNull() && (m_showHidden || entity->visibility() == OdDb::kVisible))
      entities.append(it->objectId());
  }
  return true;
}
