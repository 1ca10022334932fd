#include "adoption/CJbOutsideDrawing.h"

#include <algorithm>

#include "adoption/CJbOutsideBlockReader.h"
#include "adoption/CJbOutsideReference.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbSymbolTableIterator.h"

CJbOutsideDrawing::CJbOutsideDrawing(OdDbDatabase* database) {
  const OdSmartPtr<OdDbBlockTable> table(database->getBlockTableId().safeOpenObject());
  for (OdDbSymbolTableIteratorPtr it = table->newIterator(); !it->done(); it->step()) {
    const OdDbObjectId blockId = it->getRecordId();
    if (CJbOutsideBlockReader::IsOutsideBlock(blockId)) m_blocks.push_back(blockId);
    const OdDbBlockTableRecordPtr block(blockId.safeOpenObject());
    for (OdDbObjectIteratorPtr entity = block->newIterator(); !entity->done(); entity->step()) {
      if (OdDbBlockReference::cast(entity->entity().get()).isNull()) continue;
      const OdDbObjectId definition = CJbOutsideReference::DefinitionOf(entity->objectId());
      if (!definition.isNull()) m_references[definition].push_back(entity->objectId());
    }
  }
  std::sort(m_blocks.begin(), m_blocks.end(), [](const OdDbObjectId& a, const OdDbObjectId& b) {
    return CJbOutsideBlockReader::NameOf(a) < CJbOutsideBlockReader::NameOf(b);
  });
  for (auto& entry : m_references)
    std::sort(entry.second.begin(), entry.second.end(),
              [](const OdDbObjectId& a, const OdDbObjectId& b) {
                return a.getHandle().value() < b.getHandle().value();
              });
}

std::vector<OdDbObjectId> CJbOutsideDrawing::ReferencesOf(const OdDbObjectId& definitionId) const {
  const auto found = m_references.find(definitionId);
  return found == m_references.end() ? std::vector<OdDbObjectId>() : found->second;
}
