// The drawing's record of its customizable blocks: the entries and the operations on them. Block
// copies, filing, the audit and another application's round-trip data live in their own files.
#include "storage/CJbDbCustBlockStorage.h"

#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbXrecord.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/rx/OdRxClass.h"
#include "storage/CJbCustBlockCopier.h"
#include "storage/CJbCustBlockObjectAccess.h"
#include "storage/CJbCustBlockOutsideData.h"
#include "storage/CJbCustBlockStateRecord.h"
#include "storage/CJbCustBlockStorageAuditor.h"
#include "storage/CJbDbCustBlockStorageImpl.h"

ODRX_DEFINE_MEMBERS_NAMED(CJbDbCustBlockStorage, "JbDbCustBlockStorage", OdDbObject,
                          odrx_detail::construct<CJbDbCustBlockStorage>, 25, 55, 1153,
                          "JB_BLOCK_STORAGE", "JBDBCB Classes")

namespace {
using Access = CJbCustBlockObjectAccess;
using StateRecord = CJbCustBlockStateRecord;

const char kDictionaryKey[] = "JB_CUST_BLOCK_DATA";
const char kPurgePreventorKey[] = "JbPurgePreventor";
constexpr int kHardPointerCode = 340;
}  // namespace

CJbDbCustBlockStorage::CJbDbCustBlockStorage() : m_pImpl(new CJbDbCustBlockStorageImpl) {}

CJbDbCustBlockStorage::~CJbDbCustBlockStorage() = default;

CJbDbCustBlockStoragePtr CJbDbCustBlockStorage::GetStorage(OdDbDatabase* database,
                                                           OdDb::OpenMode mode,
                                                           bool createIfNotFound) {
  if (!database) return CJbDbCustBlockStoragePtr();
  OdDbDictionaryPtr dictionary =
      Access::Open<OdDbDictionary>(database->getNamedObjectsDictionaryId(), OdDb::kForRead);
  if (dictionary.isNull()) return CJbDbCustBlockStoragePtr();
  const OdDbObjectId id = dictionary->getAt(kDictionaryKey);
  // Whatever else stands under the key is left alone.
  if (!id.isNull()) return Access::Open<CJbDbCustBlockStorage>(id, mode);
  if (!createIfNotFound) return CJbDbCustBlockStoragePtr();
  dictionary->upgradeOpen();
  CJbDbCustBlockStoragePtr storage = CJbDbCustBlockStorage::createObject();
  dictionary->setAt(kDictionaryKey, storage.get());
  if (mode != OdDb::kForWrite) storage->downgradeOpen();
  return storage;
}

bool CJbDbCustBlockStorage::IsBlockCustomizable(const OdDbObjectId& blockId) const {
  assertReadEnabled();
  return m_pImpl->Find(blockId) != nullptr;
}

bool CJbDbCustBlockStorage::IsBlockMaster(const OdDbObjectId& blockId) const {
  assertReadEnabled();
  const CustBlockStorageEntry* entry = m_pImpl->Find(blockId);
  return entry && entry->IsMaster();
}

bool CJbDbCustBlockStorage::GetMasterBlockId(const OdDbObjectId& blockId,
                                             OdDbObjectId& masterId) const {
  assertReadEnabled();
  const CustBlockStorageEntry* entry = m_pImpl->Find(blockId);
  if (!entry) return false;
  masterId = entry->masterBlockId;
  return true;
}

bool CJbDbCustBlockStorage::GetMasterBlockGraphId(const OdDbObjectId& blockId,
                                                  OdDbObjectId& graphId) const {
  assertReadEnabled();
  const CustBlockStorageEntry* master = m_pImpl->FindMaster(blockId);
  if (!master) return false;
  graphId = master->graphId;
  return true;
}

bool CJbDbCustBlockStorage::GetAllBlockInstancesForMasterBlock(
    const OdDbObjectId& masterId, OdArray<OdDbObjectId>& instances) const {
  assertReadEnabled();
  instances.clear();
  if (!IsBlockMaster(masterId)) return false;
  for (const auto& entry : m_pImpl->m_entries) {
    if (entry.second.masterBlockId == masterId && !entry.second.IsMaster())
      instances.append(entry.first);
  }
  return true;
}

bool CJbDbCustBlockStorage::DefaultState(const OdDbObjectId& graphId, OdResBufPtr& chain) {
  CJbDbCustBlockGraphPtr graph = Access::Open<CJbDbCustBlockGraph>(graphId, OdDb::kForRead);
  if (graph.isNull()) return false;
  CJbDbCustBlockGraphInstanceContext context(StateRecord::kPlainState, graph->database());
  chain = graph->SaveInstance(&context);
  return !chain.isNull();
}

bool CJbDbCustBlockStorage::GetCustomData(const OdDbObjectId& blockId, OdResBufPtr& chain) const {
  assertReadEnabled();
  const CustBlockStorageEntry* entry = m_pImpl->Find(blockId);
  if (!entry) return false;
  if (OdDbXrecordPtr record = Access::Open<OdDbXrecord>(entry->customDataId, OdDb::kForRead)) {
    chain = StateRecord::Read(record.get());
    return true;
  }
  OdDbObjectId graphId;
  return GetMasterBlockGraphId(blockId, graphId) && DefaultState(graphId, chain);
}

bool CJbDbCustBlockStorage::GetUpdatedGraph(const OdDbObjectId& blockId,
                                            CJbDbCustBlockGraphPtr& graph) const {
  assertReadEnabled();
  OdDbObjectId graphId;
  if (!m_pImpl->Find(blockId) || !GetMasterBlockGraphId(blockId, graphId)) return false;
  CJbDbCustBlockGraphPtr master = Access::Open<CJbDbCustBlockGraph>(graphId, OdDb::kForRead);
  OdResBufPtr chain;
  if (master.isNull() || !GetCustomData(blockId, chain)) return false;
  CJbDbCustBlockGraphPtr clone = CJbDbCustBlockGraph::cast(master->clone().get());
  if (clone.isNull()) return false;
  // State saved from this clone carries the current format, whatever the master was read at.
  clone->UpgradeToCurrentVersion();
  CJbDbCustBlockGraphInstanceContext context(StateRecord::kPlainState, database());
  clone->LoadInstance(chain, &context);
  graph = clone;
  return true;
}

bool CJbDbCustBlockStorage::IsNewBlockInstanceRequired(const OdDbObjectId& blockId) const {
  assertReadEnabled();
  const CustBlockStorageEntry* entry = m_pImpl->Find(blockId);
  if (!entry) return false;
  if (entry->IsMaster()) return true;
  return Access::DirectReferences(blockId).length() > 1;
}

bool CJbDbCustBlockStorage::AppendMasterBlock(const OdDbObjectId& blockId, OdDbObjectId& graphId) {
  assertReadEnabled();
  if (m_pImpl->Find(blockId)) return false;
  OdString name;
  if (OdDbBlockTableRecordPtr block = Access::Open<OdDbBlockTableRecord>(blockId, OdDb::kForRead))
    name = block->getName();
  else
    return false;
  CJbDbCustBlockGraphPtr graph;
  if (!graphId.isNull()) {
    graph = Access::Open<CJbDbCustBlockGraph>(graphId, OdDb::kForWrite);
    if (graph.isNull()) return false;
  } else {
    if (!database()) return false;
    graph = CJbDbCustBlockGraph::createObject();
    graphId = database()->addOdDbObject(graph.get());
  }
  assertWriteEnabled();
  m_pImpl->m_entries[blockId] =
      CustBlockStorageEntry{blockId, name, graphId, blockId, OdDbObjectId::kNull};
  graph->setOwnerId(objectId());
  graph->SetBlockDefinitionId(blockId);
  graph.release();
  CleanUp();
  return true;
}

bool CJbDbCustBlockStorage::HasState(const OdDbObjectId& blockId) const {
  assertReadEnabled();
  const CustBlockStorageEntry* entry = m_pImpl->Find(blockId);
  if (!entry) return false;
  if (!Access::Open<OdDbXrecord>(entry->customDataId, OdDb::kForRead).isNull()) return true;
  const CustBlockStorageEntry* master = m_pImpl->FindMaster(blockId);
  return master && !Access::Open<CJbDbCustBlockGraph>(master->graphId, OdDb::kForRead).isNull();
}

bool CJbDbCustBlockStorage::CreateBlockInstance(const OdDbObjectId& blockId,
                                                OdDbObjectId& newBlockId) {
  if (!HasState(blockId) || !database()) return false;
  OdDbObjectId masterId, graphId;
  if (!GetMasterBlockId(blockId, masterId) || !GetMasterBlockGraphId(blockId, graphId))
    return false;
  assertWriteEnabled();
  OdDbObjectPtr table = database()->getBlockTableId().openObjectShared(OdDb::kForWrite);
  if (table.isNull()) return false;
  OdDbIdMappingPtr mapping;
  const OdDbObjectId copyId = CopyBlockTableRecord(blockId, mapping);
  table.release();
  if (copyId.isNull()) return false;
  {
    OdDbBlockTableRecordPtr copy = Access::Open<OdDbBlockTableRecord>(copyId, OdDb::kForWrite);
    copy->createExtensionDictionary();
    OdDbDictionaryPtr dictionary =
        Access::Open<OdDbDictionary>(copy->extensionDictionary(), OdDb::kForWrite);
    OdDbXrecordPtr preventor = OdDbXrecord::createObject();
    preventor->setFromRbChain(OdResBuf::newRb(kHardPointerCode, blockId).get());
    dictionary->setAt(kPurgePreventorKey, preventor.get());
  }
  if (!CopyBlockInstance(blockId, masterId, copyId, *mapping)) {
    Access::Erase(copyId);
    return false;
  }
  newBlockId = copyId;
  return true;
}

OdDbObjectId CJbDbCustBlockStorage::AddCustomDataRecord(const OdResBufPtr& chain) {
  OdDbXrecordPtr record = OdDbXrecord::createObject();
  if (!database() || StateRecord::Write(record.get(), chain.get()) != eOk)
    return OdDbObjectId::kNull;
  const OdDbObjectId id = database()->addOdDbObject(record.get());
  record->setOwnerId(objectId());
  return id;
}

bool CJbDbCustBlockStorage::SetCustomData(const OdDbObjectId& blockId, OdResBufPtr chain) {
  assertReadEnabled();
  CustBlockStorageEntry* entry = m_pImpl->Find(blockId);
  if (!entry) return false;
  if (OdDbXrecordPtr record = Access::Open<OdDbXrecord>(entry->customDataId, OdDb::kForWrite))
    return StateRecord::Write(record.get(), chain.get()) == eOk;
  assertWriteEnabled();
  const OdDbObjectId recordId = AddCustomDataRecord(chain);
  if (recordId.isNull()) return false;
  entry->customDataId = recordId;
  return true;
}

bool CJbDbCustBlockStorage::SetCustomData(const OdDbObjectId& sourceBlockId,
                                          const OdDbObjectId& newBlockId, OdResBufPtr chain) {
  OdDbDatabase* own = database();
  if (!own || sourceBlockId.database() != own || newBlockId.database() != own) return false;
  assertReadEnabled();
  if (m_pImpl->Find(newBlockId)) return SetCustomData(newBlockId, chain);
  const CustBlockStorageEntry* master = m_pImpl->FindMaster(sourceBlockId);
  if (!master || master->graphId.isNull()) return false;
  OdString name;
  if (OdDbBlockTableRecordPtr block =
          Access::Open<OdDbBlockTableRecord>(newBlockId, OdDb::kForRead))
    name = block->getName();
  else
    return false;
  assertWriteEnabled();
  const OdDbObjectId recordId = AddCustomDataRecord(chain);
  if (recordId.isNull()) return false;
  m_pImpl->m_entries[newBlockId] =
      CustBlockStorageEntry{newBlockId, name, master->graphId, master->blockId, recordId};
  return true;
}

bool CJbDbCustBlockStorage::EraseMasterCustomData(const OdDbObjectId& blockId) {
  assertReadEnabled();
  const CustBlockStorageEntry* master = m_pImpl->FindMaster(blockId);
  if (!master) return false;
  if (!master->customDataId.isNull()) {
    assertWriteEnabled();
    Access::EraseOwnedBy(objectId(), master->customDataId);
    m_pImpl->Find(master->blockId)->customDataId = OdDbObjectId::kNull;
  }
  return true;
}

bool CJbDbCustBlockStorage::RemoveBlock(const OdDbObjectId& blockId, bool repointReferences) {
  assertReadEnabled();
  const CustBlockStorageEntry* found = m_pImpl->Find(blockId);
  if (!found) return false;
  assertWriteEnabled();
  const CustBlockStorageEntry entry = *found;
  if (entry.IsMaster()) {
    OdArray<OdDbObjectId> instances;
    GetAllBlockInstancesForMasterBlock(blockId, instances);
    for (const OdDbObjectId& instance : instances)
      RemoveBlock(instance, true);
  } else if (repointReferences && entry.masterBlockId.isValid()) {
    Access::PointReferencesAt(Access::DirectReferences(blockId), entry.masterBlockId);
  }
  CJbDbCustBlockGraphPtr graph;
  if (GetUpdatedGraph(blockId, graph)) graph->Reset(blockId, true);
  if (entry.IsMaster()) Access::EraseOwnedBy(objectId(), entry.graphId);
  Access::EraseOwnedBy(objectId(), entry.customDataId);
  m_pImpl->m_entries.erase(blockId);
  return true;
}

void CJbDbCustBlockStorage::CleanUp() {
  assertWriteEnabled();
  OdArray<OdDbObjectId> erased;
  for (const auto& entry : m_pImpl->m_entries) {
    if (entry.first.isErased()) erased.append(entry.first);
  }
  for (const OdDbObjectId& id : erased)
    RemoveBlock(id, true);
}

void CJbDbCustBlockStorage::SwapBlockIds(const OdDbObjectId& blockA, const OdDbObjectId& blockB) {
  assertReadEnabled();
  OdDbDatabase* own = database();
  if (!blockA.isValid() || !blockB.isValid() || blockA.database() != own ||
      blockB.database() != own)
    return;
  const CustBlockStorageEntry* a = m_pImpl->Find(blockA);
  const CustBlockStorageEntry* b = m_pImpl->Find(blockB);
  if ((a && !a->IsMaster()) || (b && !b->IsMaster()) || (!a && !b)) return;
  assertWriteEnabled();
  const auto swapped = [&](const OdDbObjectId& id) {
    return id == blockA ? blockB : id == blockB ? blockA : id;
  };
  std::vector<CustBlockStorageEntry> moved;
  for (auto it = m_pImpl->m_entries.begin(); it != m_pImpl->m_entries.end();) {
    const CustBlockStorageEntry& entry = it->second;
    if (swapped(entry.blockId) == entry.blockId &&
        swapped(entry.masterBlockId) == entry.masterBlockId) {
      ++it;
      continue;
    }
    moved.push_back(entry);
    it = m_pImpl->m_entries.erase(it);
  }
  for (CustBlockStorageEntry& entry : moved) {
    entry.blockId = swapped(entry.blockId);
    entry.masterBlockId = swapped(entry.masterBlockId);
    m_pImpl->m_entries[entry.blockId] = entry;
  }
  for (const CustBlockStorageEntry& entry : moved) {
    if (!entry.IsMaster()) continue;
    if (CJbDbCustBlockGraphPtr graph =
            Access::Open<CJbDbCustBlockGraph>(entry.graphId, OdDb::kForWrite))
      graph->SetBlockDefinitionId(entry.blockId);
  }
}

OdDbObjectId CJbDbCustBlockStorage::CopyBlockTableRecord(const OdDbObjectId& blockId,
                                                         OdDbIdMappingPtr& mapping) {
  return CJbCustBlockCopier::CopyBlockTableRecord(blockId, mapping);
}

bool CJbDbCustBlockStorage::CopyBlockInstance(const OdDbObjectId& sourceBlockId,
                                              const OdDbObjectId& masterId,
                                              const OdDbObjectId& newBlockId,
                                              OdDbIdMapping& mapping) {
  return CJbCustBlockCopier::CopyBlockInstance(sourceBlockId, masterId, newBlockId, mapping);
}

bool CJbDbCustBlockStorage::CopyMasterBlock(const OdDbObjectId& sourceBlockId,
                                            const OdDbObjectId& destBlockId, OdDbIdMapping& mapping,
                                            bool insideCloneOperation) {
  return CJbCustBlockCopier::CopyMasterBlock(sourceBlockId, destBlockId, mapping,
                                             insideCloneOperation);
}

bool CJbDbCustBlockStorage::ApplyMappingToCustomData(OdResBufPtr chain,
                                                     const OdDbIdMapping& mapping) {
  CJbCustBlockCopier::TranslateStateIds(chain.get(), mapping);
  return true;
}

void CJbDbCustBlockStorage::RemoveBlockCustomization(const OdDbObjectId& blockId,
                                                     bool removeFromStorage,
                                                     bool removeOutsideData) {
  OdDbBlockTableRecordPtr block = Access::Open<OdDbBlockTableRecord>(blockId, OdDb::kForWrite);
  if (block.isNull()) return;
  if (removeOutsideData) CJbCustBlockOutsideData::RemoveFromBlock(block);
  if (removeFromStorage) {
    if (CJbDbCustBlockStoragePtr storage = GetStorage(blockId.database(), OdDb::kForWrite, false))
      storage->RemoveBlock(blockId, true);
  }
}

void CJbDbCustBlockStorage::RemoveReferenceCustomization(const OdDbObjectId& referenceId,
                                                         bool removeBlockFromStorage,
                                                         bool restoreDynamicBlock) {
  OdDbBlockReferencePtr reference = Access::Open<OdDbBlockReference>(referenceId, OdDb::kForWrite);
  if (reference.isNull()) return;
  if (removeBlockFromStorage) {
    if (CJbDbCustBlockStoragePtr storage =
            GetStorage(referenceId.database(), OdDb::kForWrite, false))
      storage->RemoveBlock(reference->blockTableRecord(), true);
  }
  if (restoreDynamicBlock) CJbCustBlockOutsideData::RestoreReference(reference.get());
}

OdResult CJbDbCustBlockStorage::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbObject::dwgInFields(filer);
  return result == eOk ? m_pImpl->ReadDwg(filer) : result;
}

void CJbDbCustBlockStorage::dwgOutFields(OdDbDwgFiler* filer) const {
  assertReadEnabled();
  OdDbObject::dwgOutFields(filer);
  m_pImpl->WriteDwg(filer);
}

OdResult CJbDbCustBlockStorage::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbObject::dxfInFields(filer);
  return result == eOk ? m_pImpl->ReadDxf(filer) : result;
}

void CJbDbCustBlockStorage::dxfOutFields(OdDbDxfFiler* filer) const {
  assertReadEnabled();
  OdDbObject::dxfOutFields(filer);
  m_pImpl->WriteDxf(filer);
}

void CJbDbCustBlockStorage::audit(OdDbAuditInfo* auditInfo) {
  OdDbObject::audit(auditInfo);
  CJbCustBlockStorageAuditor(*this, *m_pImpl, *auditInfo).Audit();
}
