// The data of the block storage and its filing.
#include "storage/CJbDbCustBlockStorageImpl.h"

#include <new>

#include "platform/base/OdError.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"

namespace {
const char kSubclass[] = "JbDbCustBlockStorage";

bool nextGroupIs(OdDbDxfFiler* filer, int code) {
  if (filer->nextItem() == code) return true;
  filer->pushBackItem();
  return false;
}
}  // namespace

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

OdResult CJbDbCustBlockStorageImpl::ReadDwg(OdDbDwgFiler* filer) {
  try {
    m_reserved1 = filer->rdInt32();
    m_reserved2 = filer->rdInt32();
    m_entries.clear();
    const int count = filer->rdInt32();
    for (int i = 0; i < count; ++i) {
      CustBlockStorageEntry entry;
      entry.blockId = filer->rdSoftPointerId();
      entry.masterBlockId = filer->rdSoftPointerId();
      entry.blockName = filer->rdString();
      entry.graphId = entry.IsMaster() ? filer->rdHardOwnershipId() : filer->rdSoftPointerId();
      entry.customDataId = filer->rdHardOwnershipId();
      if (filer->filerStatus() != eOk) break;
      if (!entry.blockId.isNull()) m_entries[entry.blockId] = entry;
    }
  } catch (const OdError& error) {
    return error.code();
  } catch (const std::bad_alloc&) {
    return eOutOfMemory;
  }
  return filer->filerStatus();
}

void CJbDbCustBlockStorageImpl::WriteDwg(OdDbDwgFiler* filer) const {
  filer->wrInt32(m_reserved1);
  filer->wrInt32(m_reserved2);
  filer->wrInt32(static_cast<std::int32_t>(m_entries.size()));
  for (const auto& item : m_entries) {
    const CustBlockStorageEntry& entry = item.second;
    filer->wrSoftPointerId(entry.blockId);
    filer->wrSoftPointerId(entry.masterBlockId);
    filer->wrString(entry.blockName);
    if (entry.IsMaster())
      filer->wrHardOwnershipId(entry.graphId);
    else
      filer->wrSoftPointerId(entry.graphId);
    filer->wrHardOwnershipId(entry.customDataId);
  }
}

OdResult CJbDbCustBlockStorageImpl::ReadDxf(OdDbDxfFiler* filer) {
  if (!filer->atSubclassData(kSubclass)) return eBadDxfSequence;
  std::int32_t header[3] = {0, 0, 0};  // reserved1, reserved2, count
  for (int i = 0; i < 3; ++i) {
    if (!nextGroupIs(filer, 90)) return eBadDxfSequence;
    header[i] = filer->rdInt32();
    if (i == 1) m_entries.clear();
  }
  m_reserved1 = header[0];
  m_reserved2 = header[1];
  for (std::int32_t i = 0; i < header[2]; ++i) {
    CustBlockStorageEntry entry;
    if (!nextGroupIs(filer, 330)) return eBadDxfSequence;
    entry.blockId = filer->rdObjectId();
    if (!nextGroupIs(filer, 330)) return eBadDxfSequence;
    entry.masterBlockId = filer->rdObjectId();
    if (!nextGroupIs(filer, 100)) return eBadDxfSequence;
    entry.blockName = filer->rdString();
    const int graphCode = filer->nextItem();
    if (graphCode != 330 && graphCode != 360) {
      filer->pushBackItem();
      return eBadDxfSequence;
    }
    entry.graphId = filer->rdObjectId();
    if (!nextGroupIs(filer, 360)) return eBadDxfSequence;
    entry.customDataId = filer->rdObjectId();
    if (!entry.blockId.isNull()) m_entries[entry.blockId] = entry;
  }
  return filer->filerStatus();
}

void CJbDbCustBlockStorageImpl::WriteDxf(OdDbDxfFiler* filer) const {
  filer->wrSubclassMarker(kSubclass);
  filer->wrInt32(90, m_reserved1);
  filer->wrInt32(90, m_reserved2);
  filer->wrInt32(90, static_cast<std::int32_t>(m_entries.size()));
  for (const auto& item : m_entries) {
    const CustBlockStorageEntry& entry = item.second;
    filer->wrSoftPointerId(330, entry.blockId);
    filer->wrSoftPointerId(330, entry.masterBlockId);
    filer->wrString(100, entry.blockName);
    if (entry.IsMaster())
      filer->wrHardOwnershipId(360, entry.graphId);
    else
      filer->wrSoftPointerId(330, entry.graphId);
    filer->wrHardOwnershipId(360, entry.customDataId);
  }
}
