// The data of the block storage: one entry per customizable block, ordered by block id, and two
// reserved integers that are filed but not interpreted.
#pragma once

#include <cstdint>
#include <map>

#include "platform/base/OdString.h"
#include "platform/db/OdDbObjectId.h"

struct CustBlockStorageEntry {
  OdDbObjectId blockId;
  OdString blockName;
  OdDbObjectId graphId;
  OdDbObjectId masterBlockId;
  OdDbObjectId customDataId;

  bool IsMaster() const { return blockId == masterBlockId; }
};

class CJbDbCustBlockStorageImpl {
 public:
  using EntryMap = std::map<OdDbObjectId, CustBlockStorageEntry>;

  const CustBlockStorageEntry* Find(const OdDbObjectId& blockId) const;
  CustBlockStorageEntry* Find(const OdDbObjectId& blockId);
  // The entry of the block's master: the block's own for a master, null without one.
  const CustBlockStorageEntry* FindMaster(const OdDbObjectId& blockId) const;

  EntryMap m_entries;
  std::int32_t m_reserved1 = 0;
  std::int32_t m_reserved2 = 0;
};
