#include "module/CJbCustBlockGraphLookup.h"

#include "core/CJbDbCustBlockGraph.h"
#include "platform/db/OdDbBlockTable.h"
#include "platform/db/OdDbDatabase.h"

OdDbObjectId CJbCustBlockGraphLookup::FindGraph(const OdDbObjectId& blockId) {
  OdDbDatabase* database = blockId.database();
  if (!database) return OdDbObjectId();
  for (const OdDbObjectId& id : database->objectIds()) {
    OdDbObjectPtr object;
    if (id.isErased() || id.openObject(object) != eOk) continue;
    const CJbDbCustBlockGraphPtr graph = CJbDbCustBlockGraph::cast(object.get());
    if (!graph.isNull() && graph->GetBlockDefinitionId() == blockId) return id;
  }
  return OdDbObjectId();
}

OdDbObjectId CJbCustBlockGraphLookup::FindBlock(OdDbDatabase* database, const OdString& blockName) {
  if (!database || blockName.isEmpty()) return OdDbObjectId();
  OdDbObjectPtr table;
  if (database->getBlockTableId().openObject(table) != eOk) return OdDbObjectId();
  return OdDbBlockTable::cast(table.get())->getAt(blockName);
}
