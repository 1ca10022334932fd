// The data of the block storage.
#include "storage/CJbDbCustBlockStorageImpl.h"

const CustBlockStorageEntry* CJbDbCustBlockStorageImpl::Find(const OdDbObjectId& blockId) const {
  auto found = m_entries.find(blockId);
  return found == m_entries.end() ? nullptr : &found->second;
}

CustBlockStorageEntry* CJbDbCustBlockStorageImpl::Find(const OdDbObjectId& blockId) {
  auto found = m_entries.find(blockId);
  return found == m_entries.end() ? nullptr : &found->second;
}

const CustBlockStorageEntry* CJbDbCustBlockStorageImpl::FindMaster(
    const OdDbObjectId& blockId) const {
  const CustBlockStorageEntry* entry = Find(blockId);
  if (!entry || entry->IsMaster()) return entry;
  const CustBlockStorageEntry* master = Find(entry->masterBlockId);
  return master && master->IsMaster() ? master : nullptr;
}
