#include "cli/blocks/CustomBlockCatalog.h"

#include <algorithm>

#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbSymbolTableIterator.h"
#include "storage/CJbDbCustBlockStorage.h"

namespace {
// Opened per question, so that an edit in between can open it for write.
OdSmartPtr<CJbDbCustBlockStorage> storageOf(OdDbDatabase* database) {
  return CJbDbCustBlockStorage::GetStorage(database, OdDb::kForRead, false);
}
}  // namespace

CustomBlockCatalog::CustomBlockCatalog(OdDbDatabase* database) : m_database(database) {
  const auto storage = storageOf(database);
  if (storage.isNull()) return;
  const OdSmartPtr<OdDbBlockTable> table(database->getBlockTableId().safeOpenObject());
  for (OdDbSymbolTableIteratorPtr it = table->newIterator(); !it->done(); it->step()) {
    if (storage->IsBlockMaster(it->getRecordId())) m_masters.push_back(it->getRecordId());
  }
  auto name = [](const OdDbObjectId& block) {
    return OdDbBlockTableRecordPtr(block.safeOpenObject())->getName();
  };
  std::sort(m_masters.begin(), m_masters.end(),
            [&](const OdDbObjectId& a, const OdDbObjectId& b) { return name(a) < name(b); });
}

OdDbObjectId CustomBlockCatalog::masterOf(const OdDbObjectId& block) const {
  const auto storage = storageOf(m_database);
  OdDbObjectId master;
  if (storage.isNull() || !storage->GetMasterBlockId(block, master)) return OdDbObjectId();
  return master;
}

CJbDbCustBlockGraphPtr CustomBlockCatalog::graphOf(const OdDbObjectId& block) const {
  const auto storage = storageOf(m_database);
  CJbDbCustBlockGraphPtr graph;
  if (storage.isNull() || !storage->GetUpdatedGraph(block, graph)) return CJbDbCustBlockGraphPtr();
  return graph;
}

std::vector<OdDbObjectId> CustomBlockCatalog::references() const {
  std::vector<OdDbObjectId> found;
  const OdSmartPtr<OdDbBlockTable> table(m_database->getBlockTableId().safeOpenObject());
  for (OdDbSymbolTableIteratorPtr it = table->newIterator(); !it->done(); it->step()) {
    const OdDbBlockTableRecordPtr layout(it->getRecordId().safeOpenObject());
    if (!layout->isLayout()) continue;
    for (OdDbObjectIteratorPtr entity = layout->newIterator(); !entity->done(); entity->step()) {
      const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(entity->entity().get());
      if (!reference.isNull() && !masterOf(reference->blockTableRecord()).isNull())
        found.push_back(entity->objectId());
    }
  }
  std::sort(found.begin(), found.end(), [](const OdDbObjectId& a, const OdDbObjectId& b) {
    return a.getHandle().value() < b.getHandle().value();
  });
  return found;
}
