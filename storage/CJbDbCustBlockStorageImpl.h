// The data of the block storage: one entry per customizable block, ordered by the block's handle,
// and two reserved integers that are filed but not interpreted. It files itself after the storage
// object's common data.
#pragma once

#include <cstdint>
#include <map>

#include "platform/base/OdResult.h"
#include "platform/base/OdString.h"
#include "platform/db/OdDbObjectId.h"

class OdDbDwgFiler;
class OdDbDxfFiler;

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
  // By handle, not by the ids' places in memory: a drawing read and saved again lists its
  // entries as before, and every run files them alike.
  struct ByHandle {
    bool operator()(const OdDbObjectId& a, const OdDbObjectId& b) const {
      return a.getHandle() < b.getHandle();
    }
  };
  using EntryMap = std::map<OdDbObjectId, CustBlockStorageEntry, ByHandle>;

  const CustBlockStorageEntry* Find(const OdDbObjectId& blockId) const;
  CustBlockStorageEntry* Find(const OdDbObjectId& blockId);
  // The entry of the block's master: the block's own for a master, null without one.
  const CustBlockStorageEntry* FindMaster(const OdDbObjectId& blockId) const;

  // The two reserved values and the entry count, then per entry in id order: block, master,
  // name, graph (owned by a master, referred to by an instance) and the owned state record. A
  // DXF record with a group code out of place reads as eBadDxfSequence.
  OdResult ReadDwg(OdDbDwgFiler* filer);
  void WriteDwg(OdDbDwgFiler* filer) const;
  OdResult ReadDxf(OdDbDxfFiler* filer);
  void WriteDxf(OdDbDxfFiler* filer) const;

  EntryMap m_entries;
  std::int32_t m_reserved1 = 0;
  std::int32_t m_reserved2 = 0;
};
