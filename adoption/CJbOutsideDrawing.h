// Another program's parametric blocks in one drawing: the blocks that carry a definition, and the
// references made from each, wherever they are placed (in a layout or inside another block).
#pragma once

#include <map>
#include <vector>

#include "platform/db/OdDbDatabase.h"

class CJbOutsideDrawing {
 public:
  explicit CJbOutsideDrawing(OdDbDatabase* database);

  // The blocks that carry a definition, by the name the other program shows.
  const std::vector<OdDbObjectId>& Blocks() const { return m_blocks; }
  // The references made from the definition, by handle.
  std::vector<OdDbObjectId> ReferencesOf(const OdDbObjectId& definitionId) const;

 private:
  std::vector<OdDbObjectId> m_blocks;
  std::map<OdDbObjectId, std::vector<OdDbObjectId>> m_references;
};
