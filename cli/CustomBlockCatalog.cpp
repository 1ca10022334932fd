#include "cli/CustomBlockCatalog.h"

#include <algorithm>

#include "platform/db/OdDbBlockReference.h"
#include "platform/db/OdDbBlockTable.h"
#include "platform/db/OdDbBlockTableRecord.h"
#include "platform/db/OdDbSymbolTableIterator.h"

CustomBlockCatalog::CustomBlockCatalog(OdDbDatabase* database) : m_database(database) {
  for (const OdDbObjectId& id : database->objectIds()) {
    OdDbObjectPtr object;
    if (database->openObject(object, id) != eOk) continue;
    const CJbDbCustBlockGraphPtr graph = CJbDbCustBlockGraph::cast(object.get());
    if (graph.isNull() || graph->GetBlockDefinitionId().isNull()) continue;
    m_graphs[graph->GetBlockDefinitionId()] = id;
    m_masters.push_back(graph->GetBlockDefinitionId());
  }
  auto name = [](const OdDbObjectId& block) {
    return OdDbBlockTableRecordPtr(block.safeOpenObject())->getName();
  };
  std::sort(m_masters.begin(), m_masters.end(),
            [&](const OdDbObjectId& a, const OdDbObjectId& b) { return name(a) < name(b); });
}

OdDbObjectId CustomBlockCatalog::masterOf(const OdDbObjectId& block) const {
  return m_graphs.count(block) ? block : OdDbObjectId();
}

CJbDbCustBlockGraphPtr CustomBlockCatalog::graphOf(const OdDbObjectId& block) const {
  const auto found = m_graphs.find(masterOf(block));
  if (found == m_graphs.end()) return CJbDbCustBlockGraphPtr();
  const CJbDbCustBlockGraphPtr master(found->second.safeOpenObject());
  CJbDbCustBlockGraphPtr copy = CJbDbCustBlockGraph::createObject();
  copy->copyFrom(master.get());
  return copy;
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
