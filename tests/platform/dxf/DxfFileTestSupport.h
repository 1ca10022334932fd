// Helpers shared by the file-level DXF tests: a comparable picture of a database.
#pragma once

#include <map>
#include <string>

#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbUnknownObject.h"
#include "platform/db/entities/OdDbUnknownEntity.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbSymbolTable.h"
#include "platform/rx/OdRxClass.h"

// Per handle: the class (unknown records by their record name) and the owner's handle; per block
// name: the number of entities.
struct DxfModelPicture {
  std::map<std::uint64_t, std::string> objects;
  std::map<std::string, int> blockEntities;
  bool operator==(const DxfModelPicture& other) const {
    return objects == other.objects && blockEntities == other.blockEntities;
  }
};

inline DxfModelPicture pictureOf(OdDbDatabase* db) {
  DxfModelPicture picture;
  for (const OdDbObjectId& id : db->objectIds()) {
    if (id.isErased()) continue;
    OdDbObjectPtr object = id.safeOpenObject();
    std::string kind = object->isA()->name().str();
    if (auto unknown = OdDbUnknownObject::cast(object.get()); !unknown.isNull())
      kind += ":" + unknown->dxfRecordName().str();
    if (auto unknown = OdDbUnknownEntity::cast(object.get()); !unknown.isNull())
      kind += ":" + unknown->dxfRecordName().str();
    picture.objects[id.getHandle().value()] =
        kind + " owned by " + object->ownerId().getHandle().ascii().str();
  }
  OdDbObjectPtr table = db->getBlockTableId().safeOpenObject();
  for (const OdDbObjectId& blockId : static_cast<OdDbSymbolTable*>(table.get())->recordIds()) {
    OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(blockId.safeOpenObject().get());
    int count = 0;
    for (OdDbObjectIteratorPtr it = block->newIterator(); !it->done(); it->step())
      ++count;
    picture.blockEntities[block->getName().str()] = count;
  }
  return picture;
}
