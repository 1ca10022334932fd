#include "module/CJbCustBlockGraphLookup.h"

#include "platform/db/OdDbDatabase.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "storage/CJbDbCustBlockStorage.h"

OdDbObjectId CJbCustBlockGraphLookup::FindGraph(const OdDbObjectId& blockId) {
  const CJbDbCustBlockStoragePtr storage =
      CJbDbCustBlockStorage::GetStorage(blockId.database(), OdDb::kForRead, false);
  OdDbObjectId graphId;
  if (storage.isNull() || !storage->GetMasterBlockGraphId(blockId, graphId)) return OdDbObjectId();
  return graphId;
}

OdDbObjectId CJbCustBlockGraphLookup::FindBlock(OdDbDatabase* database, const OdString& blockName) {
  if (!database || blockName.isEmpty()) return OdDbObjectId();
  OdDbObjectPtr table;
  if (database->getBlockTableId().openObject(table) != eOk) return OdDbObjectId();
  return OdDbBlockTable::cast(table.get())->getAt(blockName);
}
