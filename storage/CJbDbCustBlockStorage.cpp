// The drawing's record of its customizable blocks: the entries and the operations on them. Block
// copies, filing, the audit and another application's round-trip data live in their own files.
#include "storage/CJbDbCustBlockStorage.h"

#include <vector>

#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbXrecord.h"
#include "platform/db/entities/OdDbBlockReference.h"
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

CJbCustBlockResult CJbDbCustBlockStorage::NotCustomizable(const OdDbObjectId& blockId) {
  return CJbCustBlockResult::Failure(eKeyNotFound, "The block \"%1\" is not customizable.",
                                     {Access::NameOf(blockId)});
}

CJbCustBlockResult CJbDbCustBlockStorage::GetMasterBlockId(const OdDbObjectId& blockId,
                                                           OdDbObjectId& masterId) const {
  assertReadEnabled();
  const CustBlockStorageEntry* entry = m_pImpl->Find(blockId);
  if (!entry) return NotCustomizable(blockId);
  masterId = entry->masterBlockId;
  return CJbCustBlockResult();
}

CJbCustBlockResult CJbDbCustBlockStorage::GetMasterBlockGraphId(const OdDbObjectId& blockId,
                                                                OdDbObjectId& graphId) const {
  assertReadEnabled();
  const CustBlockStorageEntry* master = m_pImpl->FindMaster(blockId);
  if (!master) {
    if (!m_pImpl->Find(blockId)) return NotCustomizable(blockId);
    return CJbCustBlockResult::Failure(eKeyNotFound, "The master of block \"%1\" is missing.",
                                       {Access::NameOf(blockId)});
  }
  graphId = master->graphId;
  return CJbCustBlockResult();
}

CJbCustBlockResult CJbDbCustBlockStorage::GetAllBlockInstancesForMasterBlock(
    const OdDbObjectId& masterId, OdArray<OdDbObjectId>& instances) const {
  assertReadEnabled();
  instances.clear();
  if (!IsBlockMaster(masterId))
    return CJbCustBlockResult::Failure(eNotApplicable,
                                       "The block \"%1\" is no master of customizable blocks.",
                                       {Access::NameOf(masterId)});
  for (const auto& entry : m_pImpl->m_entries) {
    if (entry.second.masterBlockId == masterId && !entry.second.IsMaster())
      instances.append(entry.first);
  }
  return CJbCustBlockResult();
}

CJbCustBlockResult CJbDbCustBlockStorage::DefaultState(const OdDbObjectId& blockId,
                                                       const OdDbObjectId& graphId,
                                                       OdResBufPtr& chain) {
  CJbDbCustBlockGraphPtr graph = Access::Open<CJbDbCustBlockGraph>(graphId, OdDb::kForRead);
  if (graph.isNull()) return NoGraph(blockId);
  CJbDbCustBlockGraphInstanceContext context(StateRecord::kPlainState, graph->database());
  chain = graph->SaveInstance(&context);
  if (chain.isNull())
    return CJbCustBlockResult::Failure(eInvalidResBuf,
                                       "The evaluation graph of block \"%1\" gives no state.",
                                       {Access::NameOf(blockId)});
  return CJbCustBlockResult();
}

CJbCustBlockResult CJbDbCustBlockStorage::NoGraph(const OdDbObjectId& blockId) {
  return CJbCustBlockResult::Failure(
      eKeyNotFound, "The evaluation graph of block \"%1\" is missing.", {Access::NameOf(blockId)});
}

CJbCustBlockResult CJbDbCustBlockStorage::GetCustomData(const OdDbObjectId& blockId,
                                                        OdResBufPtr& chain) const {
  assertReadEnabled();
  const CustBlockStorageEntry* entry = m_pImpl->Find(blockId);
  if (!entry) return NotCustomizable(blockId);
  if (OdDbXrecordPtr record = Access::Open<OdDbXrecord>(entry->customDataId, OdDb::kForRead)) {
    chain = StateRecord::Read(record.get());
    return CJbCustBlockResult();
  }
  OdDbObjectId graphId;
  const CJbCustBlockResult found = GetMasterBlockGraphId(blockId, graphId);
  return found ? DefaultState(blockId, graphId, chain) : found;
}

CJbCustBlockResult CJbDbCustBlockStorage::GetUpdatedGraph(const OdDbObjectId& blockId,
                                                          CJbDbCustBlockGraphPtr& graph) const {
  assertReadEnabled();
  OdDbObjectId graphId;
  if (const CJbCustBlockResult found = GetMasterBlockGraphId(blockId, graphId); !found)
    return found;
  CJbDbCustBlockGraphPtr master = Access::Open<CJbDbCustBlockGraph>(graphId, OdDb::kForRead);
  if (master.isNull()) return NoGraph(blockId);
  OdResBufPtr chain;
  if (const CJbCustBlockResult state = GetCustomData(blockId, chain); !state) return state;
  CJbDbCustBlockGraphPtr clone = CJbDbCustBlockGraph::cast(master->clone().get());
  if (clone.isNull())
    return CJbCustBlockResult::Failure(eNotApplicable,
                                       "The evaluation graph of block \"%1\" cannot be copied.",
                                       {Access::NameOf(blockId)});
  // State saved from this clone carries the current format, whatever the master was read at.
  clone->UpgradeToCurrentVersion();
  CJbDbCustBlockGraphInstanceContext context(StateRecord::kPlainState, database());
  clone->LoadInstance(chain, &context);
  graph = clone;
  return CJbCustBlockResult();
}

bool CJbDbCustBlockStorage::IsNewBlockInstanceRequired(const OdDbObjectId& blockId) const {
  assertReadEnabled();
  const CustBlockStorageEntry* entry = m_pImpl->Find(blockId);
  if (!entry) return false;
  if (entry->IsMaster()) return true;
  return Access::DirectReferences(blockId).length() > 1;
}

CJbCustBlockResult CJbDbCustBlockStorage::AppendMasterBlock(const OdDbObjectId& blockId,
                                                            OdDbObjectId& graphId) {
  assertReadEnabled();
  if (m_pImpl->Find(blockId))
    return CJbCustBlockResult::Failure(eDuplicateKey, "The block \"%1\" is customizable already.",
                                       {Access::NameOf(blockId)});
  OdString name;
  if (OdDbBlockTableRecordPtr block = Access::Open<OdDbBlockTableRecord>(blockId, OdDb::kForRead))
    name = block->getName();
  else
    return NoBlock(blockId);
  CJbDbCustBlockGraphPtr graph;
  if (!graphId.isNull()) {
    graph = Access::Open<CJbDbCustBlockGraph>(graphId, OdDb::kForWrite);
    if (graph.isNull())
      return CJbCustBlockResult::Failure(
          eWrongObjectType, "The object %1 is no evaluation graph that can be changed.",
          {graphId.getHandle().ascii()});
  } else {
    if (!database()) return NoDrawing();
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
  return CJbCustBlockResult();
}

CJbCustBlockResult CJbDbCustBlockStorage::NoBlock(const OdDbObjectId& id) {
  return CJbCustBlockResult::Failure(eNotThatKindOfClass, "\"%1\" is no block definition.",
                                     {Access::NameOf(id)});
}

CJbCustBlockResult CJbDbCustBlockStorage::NoDrawing() {
  return CJbCustBlockResult::Failure(eNoDatabase, "The block storage belongs to no drawing.");
}

bool CJbDbCustBlockStorage::HasState(const OdDbObjectId& blockId) const {
  assertReadEnabled();
  const CustBlockStorageEntry* entry = m_pImpl->Find(blockId);
  if (!entry) return false;
  if (!Access::Open<OdDbXrecord>(entry->customDataId, OdDb::kForRead).isNull()) return true;
  const CustBlockStorageEntry* master = m_pImpl->FindMaster(blockId);
  return master && !Access::Open<CJbDbCustBlockGraph>(master->graphId, OdDb::kForRead).isNull();
}

CJbCustBlockResult CJbDbCustBlockStorage::CreateBlockInstance(const OdDbObjectId& blockId,
                                                              OdDbObjectId& newBlockId) {
  OdDbObjectId masterId, graphId;
  if (const CJbCustBlockResult found = GetMasterBlockId(blockId, masterId); !found) return found;
  if (const CJbCustBlockResult found = GetMasterBlockGraphId(blockId, graphId); !found)
    return found;
  if (!HasState(blockId)) return NoGraph(blockId);
  if (!database()) return NoDrawing();
  assertWriteEnabled();
  OdDbObjectPtr table = database()->getBlockTableId().openObjectShared(OdDb::kForWrite);
  if (table.isNull())
    return CJbCustBlockResult::Failure(eNotOpenForWrite,
                                       "The block table cannot be opened for a new block.");
  OdDbIdMappingPtr mapping;
  const OdDbObjectId copyId = CopyBlockTableRecord(blockId, mapping);
  table.release();
  if (copyId.isNull())
    return CJbCustBlockResult::Failure(eNotApplicable, "The block \"%1\" could not be copied.",
                                       {Access::NameOf(blockId)});
  {
    OdDbBlockTableRecordPtr copy = Access::Open<OdDbBlockTableRecord>(copyId, OdDb::kForWrite);
    copy->createExtensionDictionary();
    OdDbDictionaryPtr dictionary =
        Access::Open<OdDbDictionary>(copy->extensionDictionary(), OdDb::kForWrite);
    OdDbXrecordPtr preventor = OdDbXrecord::createObject();
    preventor->setFromRbChain(OdResBuf::newRb(kHardPointerCode, blockId).get());
    dictionary->setAt(kPurgePreventorKey, preventor.get());
  }
  if (const CJbCustBlockResult copied = CopyBlockInstance(blockId, masterId, copyId, *mapping);
      !copied) {
    Access::Erase(copyId);
    return copied;
  }
  newBlockId = copyId;
  return CJbCustBlockResult();
}

CJbCustBlockResult CJbDbCustBlockStorage::AddCustomDataRecord(const OdDbObjectId& blockId,
                                                              const OdResBufPtr& chain,
                                                              OdDbObjectId& recordId) {
  if (!database()) return NoDrawing();
  OdDbXrecordPtr record = OdDbXrecord::createObject();
  if (const OdResult stored = StateRecord::Write(record.get(), chain.get()); stored != eOk)
    return StateNotStored(blockId, stored);
  recordId = database()->addOdDbObject(record.get());
  record->setOwnerId(objectId());
  return CJbCustBlockResult();
}

CJbCustBlockResult CJbDbCustBlockStorage::StateNotStored(const OdDbObjectId& blockId,
                                                         OdResult code) {
  return CJbCustBlockResult::Failure(code, "The state of block \"%1\" cannot be stored.",
                                     {Access::NameOf(blockId)});
}

CJbCustBlockResult CJbDbCustBlockStorage::SetCustomData(const OdDbObjectId& blockId,
                                                        OdResBufPtr chain) {
  assertReadEnabled();
  CustBlockStorageEntry* entry = m_pImpl->Find(blockId);
  if (!entry) return NotCustomizable(blockId);
  if (OdDbXrecordPtr record = Access::Open<OdDbXrecord>(entry->customDataId, OdDb::kForWrite)) {
    const OdResult stored = StateRecord::Write(record.get(), chain.get());
    return stored == eOk ? CJbCustBlockResult() : StateNotStored(blockId, stored);
  }
  assertWriteEnabled();
  OdDbObjectId recordId;
  const CJbCustBlockResult added = AddCustomDataRecord(blockId, chain, recordId);
  if (added) entry->customDataId = recordId;
  return added;
}

CJbCustBlockResult CJbDbCustBlockStorage::SetCustomData(const OdDbObjectId& sourceBlockId,
                                                        const OdDbObjectId& newBlockId,
                                                        OdResBufPtr chain) {
  OdDbDatabase* own = database();
  if (!own) return NoDrawing();
  if (sourceBlockId.database() != own || newBlockId.database() != own)
    return CJbCustBlockResult::Failure(
        eWrongDatabase, "The blocks \"%1\" and \"%2\" are not both in the storage's drawing.",
        {Access::NameOf(sourceBlockId), Access::NameOf(newBlockId)});
  assertReadEnabled();
  if (m_pImpl->Find(newBlockId)) return SetCustomData(newBlockId, chain);
  OdDbObjectId graphId;
  if (const CJbCustBlockResult found = GetMasterBlockGraphId(sourceBlockId, graphId); !found)
    return found;
  if (graphId.isNull()) return NoGraph(sourceBlockId);
  OdString name;
  if (OdDbBlockTableRecordPtr block =
          Access::Open<OdDbBlockTableRecord>(newBlockId, OdDb::kForRead))
    name = block->getName();
  else
    return NoBlock(newBlockId);
  assertWriteEnabled();
  OdDbObjectId recordId;
  if (const CJbCustBlockResult added = AddCustomDataRecord(newBlockId, chain, recordId); !added)
    return added;
  const OdDbObjectId masterId = m_pImpl->FindMaster(sourceBlockId)->blockId;
  m_pImpl->m_entries[newBlockId] =
      CustBlockStorageEntry{newBlockId, name, graphId, masterId, recordId};
  return CJbCustBlockResult();
}

CJbCustBlockResult CJbDbCustBlockStorage::EraseMasterCustomData(const OdDbObjectId& blockId) {
  assertReadEnabled();
  OdDbObjectId graphId;
  if (const CJbCustBlockResult found = GetMasterBlockGraphId(blockId, graphId); !found)
    return found;
  const CustBlockStorageEntry* master = m_pImpl->FindMaster(blockId);
  if (!master->customDataId.isNull()) {
    assertWriteEnabled();
    Access::EraseOwnedBy(objectId(), master->customDataId);
    m_pImpl->Find(master->blockId)->customDataId = OdDbObjectId::kNull;
  }
  return CJbCustBlockResult();
}

CJbCustBlockResult CJbDbCustBlockStorage::RemoveBlock(const OdDbObjectId& blockId,
                                                      bool repointReferences) {
  assertReadEnabled();
  const CustBlockStorageEntry* found = m_pImpl->Find(blockId);
  if (!found) return NotCustomizable(blockId);
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
  return CJbCustBlockResult();
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
  if (mapping.isNull()) mapping = OdDbIdMapping::createObject();
  return CJbCustBlockCopier(*mapping).CopyBlock(blockId);
}

CJbCustBlockResult CJbDbCustBlockStorage::CopyBlockInstance(const OdDbObjectId& sourceBlockId,
                                                            const OdDbObjectId& masterId,
                                                            const OdDbObjectId& newBlockId,
                                                            OdDbIdMapping& mapping) {
  return CJbCustBlockCopier(mapping).CopyState(sourceBlockId, masterId, newBlockId);
}

CJbCustBlockResult CJbDbCustBlockStorage::CopyMasterBlock(const OdDbObjectId& sourceBlockId,
                                                          const OdDbObjectId& destBlockId,
                                                          OdDbIdMapping& mapping,
                                                          bool insideCloneOperation) {
  return CJbCustBlockCopier(mapping).CopyMaster(sourceBlockId, destBlockId, insideCloneOperation);
}

void CJbDbCustBlockStorage::ApplyMappingToCustomData(OdResBufPtr chain,
                                                     const OdDbIdMapping& mapping) {
  CJbCustBlockCopier::TranslateStateIds(chain.get(), mapping);
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
