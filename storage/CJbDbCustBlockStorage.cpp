// The drawing's record of its customizable blocks.
#include "storage/CJbDbCustBlockStorage.h"

#include <new>
#include <string>
#include <utility>
#include <vector>

#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "platform/db/OdDbAuditInfo.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbXrecord.h"
#include "platform/db/cloning/OdRxEvent.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/host/CJbConstraintUtils.h"
#include "platform/host/CJbCustBlockConverterUtils.h"
#include "platform/host/CJbSystemServices.h"
#include "platform/host/CJbTranslator.h"
#include "platform/host/CJbUtils.h"
#include "platform/rx/OdRxClass.h"
#include "storage/CJbCustBlockDeepCloneReactor.h"
#include "storage/CJbDbCustBlockStorageImpl.h"

ODRX_DEFINE_MEMBERS_NAMED(CJbDbCustBlockStorage, "JbDbCustBlockStorage", OdDbObject,
                          odrx_detail::construct<CJbDbCustBlockStorage>, 25, 55, 1153,
                          "JB_BLOCK_STORAGE", "JBDBCB Classes")

namespace {
const char kDictionaryKey[] = "JB_CUST_BLOCK_DATA";
const char kSubclass[] = "JbDbCustBlockStorage";
const char kPurgePreventorKey[] = "JbPurgePreventor";
// What another application's dynamic blocks leave on a block and on its references.
const char kEnhancedBlockKey[] = "ACAD_ENHANCEDBLOCK";
const char kRoundTripPurgePreventerKey[] = "AcDbDynamicBlockRoundTripPurgePreventer";
const char* const kOutsideApplications[] = {"AcDbBlockRepETag", "ACAD", "AcDbDynamicBlockGUID",
                                            "AcDbDynamicBlockTrueName",
                                            "AcDbDynamicBlockTrueName2"};
const char kBlockRepresentationKey[] = "AcDbBlockRepresentation";
constexpr int kHardPointerCode = 340;
constexpr int kApplicationNameCode = 1001;

// Instance-context modes: plain state; state without object ids, decomposed; everything.
constexpr int kPlainState = 0;
constexpr int kPortableState = CJbDbCustBlockGraphInstanceContext::kNoObjectIds |
                               CJbDbCustBlockGraphInstanceContext::kComposingRequired;
constexpr int kFullState = kPortableState | CJbDbCustBlockGraphInstanceContext::kForEvaluate;

template <class T>
OdSmartPtr<T> openAs(const OdDbObjectId& id, OdDb::OpenMode mode) {
  return T::cast(id.openObjectShared(mode).get());
}

OdDbObjectId cloneOf(const OdDbIdMapping& mapping, const OdDbObjectId& id) {
  OdDbIdPair pair(id);
  return mapping.compute(pair) ? pair.value() : OdDbObjectId::kNull;
}

OdDbObjectIdArray directReferences(const OdDbObjectId& blockId) {
  OdDbObjectIdArray ids;
  if (OdDbBlockTableRecordPtr block = openAs<OdDbBlockTableRecord>(blockId, OdDb::kForRead))
    block->getBlockReferenceIds(ids, true, false);
  return ids;
}

void pointReferencesAt(const OdDbObjectIdArray& references, const OdDbObjectId& blockId) {
  for (const OdDbObjectId& id : references) {
    if (OdDbBlockReferencePtr reference = openAs<OdDbBlockReference>(id, OdDb::kForWrite))
      reference->setBlockTableRecord(blockId);
  }
}

void eraseObject(const OdDbObjectId& id) {
  if (OdDbObjectPtr object = id.openObjectShared(OdDb::kForWrite)) object->erase(true);
}

// An entry's graph or state record goes with the entry only when the storage owns it: an id read
// from a damaged file can name any object of the drawing.
void eraseOwnedBy(const OdDbObjectId& ownerId, const OdDbObjectId& id) {
  OdDbObjectPtr object = id.openObjectShared(OdDb::kForRead);
  if (object.isNull() || object->ownerId() != ownerId) return;
  object->upgradeOpen();
  object->erase(true);
}

bool nextGroupIs(OdDbDxfFiler* filer, int code) {
  if (filer->nextItem() == code) return true;
  filer->pushBackItem();
  return false;
}

// Renames the clone of one block "*U" as the clone operation that made it starts translating, so
// that the block table numbers it as the next anonymous block. Listens to the event hub for its
// own lifetime.
class BlockTableRecordCloner : public OdStaticRxObject<OdRxEventReactor> {
 public:
  BlockTableRecordCloner(const OdDbObjectId& blockId, const OdDbIdMapping* mapping)
      : m_blockId(blockId), m_mapping(mapping) {
    odrxEvent()->addReactor(this);
  }
  ~BlockTableRecordCloner() override { odrxEvent()->removeReactor(this); }
  BlockTableRecordCloner(const BlockTableRecordCloner&) = delete;
  BlockTableRecordCloner& operator=(const BlockTableRecordCloner&) = delete;

  void beginDeepCloneXlation(OdDbIdMapping& mapping) override {
    if (&mapping != m_mapping) return;
    const OdDbObjectId cloneId = cloneOf(mapping, m_blockId);
    if (OdDbBlockTableRecordPtr clone = openAs<OdDbBlockTableRecord>(cloneId, OdDb::kForWrite))
      clone->setName("*U");
  }

 private:
  OdDbObjectId m_blockId;
  const OdDbIdMapping* m_mapping;
};

// Instance state uses in-memory result types; its record keeps them under the DXF group codes of
// the same kinds of value, so that drawing files can carry it.
struct StateCode {
  int resultType;
  int groupCode;
};
const StateCode kStateCodes[] = {
    {OdResBuf::kRtDouble, 40},  {OdResBuf::kRtAngle, 50}, {OdResBuf::kRtString, 1},
    {OdResBuf::kRtPoint3d, 10}, {OdResBuf::kRtInt32, 90},
};

OdResBufPtr stateOf(const OdDbXrecord* record) {
  OdResBufPtr chain = record->rbChain();
  for (OdResBuf* item = chain.get(); item; item = item->next().get()) {
    for (const StateCode& code : kStateCodes) {
      if (item->restype() != code.groupCode) continue;
      item->setRestype(code.resultType);
      break;
    }
  }
  return chain;
}

// The record takes a copy of the chain; the chain is recoded for that and given back as it was.
OdResult storeState(OdDbXrecord* record, OdResBuf* chain) {
  std::vector<std::pair<OdResBuf*, int>> recoded;
  for (OdResBuf* item = chain; item; item = item->next().get()) {
    for (const StateCode& code : kStateCodes) {
      if (item->restype() != code.resultType) continue;
      recoded.emplace_back(item, code.resultType);
      item->setRestype(code.groupCode);
      break;
    }
  }
  const OdResult result = record->setFromRbChain(chain);
  for (const auto& item : recoded)
    item.first->setRestype(item.second);
  return result;
}

// The trailing format version of a state chain, or -1 when it has none.
int chainVersion(const OdResBuf* chain) {
  for (const OdResBuf* item = chain; item; item = item->next().get()) {
    const OdResBuf* next = item->next().get();
    if (item->restype() == OdResBuf::kRtString && item->getString() == "VERSION" && next &&
        next->restype() == OdResBuf::kRtInt32 && !next->next())
      return next->getInt32();
  }
  return -1;
}
}  // namespace

CJbDbCustBlockStorage::CJbDbCustBlockStorage() : m_pImpl(new CJbDbCustBlockStorageImpl) {}

CJbDbCustBlockStorage::~CJbDbCustBlockStorage() = default;

CJbDbCustBlockStoragePtr CJbDbCustBlockStorage::GetStorage(OdDbDatabase* database,
                                                           OdDb::OpenMode mode,
                                                           bool createIfNotFound) {
  if (!database) return CJbDbCustBlockStoragePtr();
  OdDbDictionaryPtr dictionary =
      openAs<OdDbDictionary>(database->getNamedObjectsDictionaryId(), OdDb::kForRead);
  if (dictionary.isNull()) return CJbDbCustBlockStoragePtr();
  const OdDbObjectId id = dictionary->getAt(kDictionaryKey);
  // Whatever else stands under the key is left alone.
  if (!id.isNull()) return openAs<CJbDbCustBlockStorage>(id, mode);
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
  CJbDbCustBlockGraphPtr graph = openAs<CJbDbCustBlockGraph>(graphId, OdDb::kForRead);
  if (graph.isNull()) return false;
  CJbDbCustBlockGraphInstanceContext context(kPlainState, graph->database());
  chain = graph->SaveInstance(&context);
  return !chain.isNull();
}

bool CJbDbCustBlockStorage::GetCustomData(const OdDbObjectId& blockId, OdResBufPtr& chain) const {
  assertReadEnabled();
  const CustBlockStorageEntry* entry = m_pImpl->Find(blockId);
  if (!entry) return false;
  if (OdDbXrecordPtr record = openAs<OdDbXrecord>(entry->customDataId, OdDb::kForRead)) {
    chain = stateOf(record.get());
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
  CJbDbCustBlockGraphPtr master = openAs<CJbDbCustBlockGraph>(graphId, OdDb::kForRead);
  OdResBufPtr chain;
  if (master.isNull() || !GetCustomData(blockId, chain)) return false;
  CJbDbCustBlockGraphPtr clone = CJbDbCustBlockGraph::cast(master->clone().get());
  if (clone.isNull()) return false;
  // State saved from this clone carries the current format, whatever the master was read at.
  clone->UpgradeToCurrentVersion();
  CJbDbCustBlockGraphInstanceContext context(kPlainState, database());
  clone->LoadInstance(chain, &context);
  graph = clone;
  return true;
}

bool CJbDbCustBlockStorage::IsNewBlockInstanceRequired(const OdDbObjectId& blockId) const {
  assertReadEnabled();
  const CustBlockStorageEntry* entry = m_pImpl->Find(blockId);
  if (!entry) return false;
  if (entry->IsMaster()) return true;
  return directReferences(blockId).length() > 1;
}

bool CJbDbCustBlockStorage::AppendMasterBlock(const OdDbObjectId& blockId, OdDbObjectId& graphId) {
  assertReadEnabled();
  if (m_pImpl->Find(blockId)) return false;
  OdString name;
  if (OdDbBlockTableRecordPtr block = openAs<OdDbBlockTableRecord>(blockId, OdDb::kForRead))
    name = block->getName();
  else
    return false;
  CJbDbCustBlockGraphPtr graph;
  if (!graphId.isNull()) {
    graph = openAs<CJbDbCustBlockGraph>(graphId, OdDb::kForWrite);
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
  if (!openAs<OdDbXrecord>(entry->customDataId, OdDb::kForRead).isNull()) return true;
  const CustBlockStorageEntry* master = m_pImpl->FindMaster(blockId);
  return master && !openAs<CJbDbCustBlockGraph>(master->graphId, OdDb::kForRead).isNull();
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
    OdDbBlockTableRecordPtr copy = openAs<OdDbBlockTableRecord>(copyId, OdDb::kForWrite);
    copy->createExtensionDictionary();
    OdDbDictionaryPtr dictionary =
        openAs<OdDbDictionary>(copy->extensionDictionary(), OdDb::kForWrite);
    OdDbXrecordPtr preventor = OdDbXrecord::createObject();
    preventor->setFromRbChain(OdResBuf::newRb(kHardPointerCode, blockId).get());
    dictionary->setAt(kPurgePreventorKey, preventor.get());
  }
  if (!CopyBlockInstance(blockId, masterId, copyId, *mapping)) {
    eraseObject(copyId);
    return false;
  }
  newBlockId = copyId;
  return true;
}

OdDbObjectId CJbDbCustBlockStorage::AddCustomDataRecord(const OdResBufPtr& chain) {
  OdDbXrecordPtr record = OdDbXrecord::createObject();
  if (!database() || storeState(record.get(), chain.get()) != eOk) return OdDbObjectId::kNull;
  const OdDbObjectId id = database()->addOdDbObject(record.get());
  record->setOwnerId(objectId());
  return id;
}

bool CJbDbCustBlockStorage::SetCustomData(const OdDbObjectId& blockId, OdResBufPtr chain) {
  assertReadEnabled();
  CustBlockStorageEntry* entry = m_pImpl->Find(blockId);
  if (!entry) return false;
  if (OdDbXrecordPtr record = openAs<OdDbXrecord>(entry->customDataId, OdDb::kForWrite))
    return storeState(record.get(), chain.get()) == eOk;
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
  if (OdDbBlockTableRecordPtr block = openAs<OdDbBlockTableRecord>(newBlockId, OdDb::kForRead))
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
    eraseOwnedBy(objectId(), master->customDataId);
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
    pointReferencesAt(directReferences(blockId), entry.masterBlockId);
  }
  CJbDbCustBlockGraphPtr graph;
  if (GetUpdatedGraph(blockId, graph)) graph->Reset(blockId, true);
  if (entry.IsMaster()) eraseOwnedBy(objectId(), entry.graphId);
  eraseOwnedBy(objectId(), entry.customDataId);
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
    if (CJbDbCustBlockGraphPtr graph = openAs<CJbDbCustBlockGraph>(entry.graphId, OdDb::kForWrite))
      graph->SetBlockDefinitionId(entry.blockId);
  }
}

OdDbObjectId CJbDbCustBlockStorage::CopyBlockTableRecord(const OdDbObjectId& blockId,
                                                         OdDbIdMappingPtr& mapping) {
  if (blockId.isNull()) return OdDbObjectId::kNull;
  if (mapping.isNull()) mapping = OdDbIdMapping::createObject();
  OdDbObjectId tableId;
  if (OdDbObjectPtr block = blockId.openObjectShared(OdDb::kForRead))
    tableId = block->ownerId();
  else
    return OdDbObjectId::kNull;
  {
    const CJbCustBlockDeepCloneReactor::Suspension ownCopy;
    const BlockTableRecordCloner cloner(blockId, mapping.get());
    blockId.database()->deepCloneObjects(OdDbObjectIdArray{blockId}, tableId, *mapping, false);
  }
  const OdDbObjectId cloneId = cloneOf(*mapping, blockId);
  if (cloneId.isNull()) return cloneId;
  RemoveBlockCustomization(cloneId, true, true);
  return cloneId;
}

bool CJbDbCustBlockStorage::CopyBlockInstance(const OdDbObjectId& sourceBlockId,
                                              const OdDbObjectId& masterId,
                                              const OdDbObjectId& newBlockId,
                                              OdDbIdMapping& mapping) {
  CJbDbCustBlockGraphPtr updated;
  {
    CJbDbCustBlockStoragePtr source = GetStorage(sourceBlockId.database(), OdDb::kForRead, false);
    if (source.isNull() || !source->IsBlockCustomizable(sourceBlockId)) return true;
    OdDbObjectId sourceGraphId;
    if (!source->GetMasterBlockGraphId(sourceBlockId, sourceGraphId) ||
        !source->GetUpdatedGraph(sourceBlockId, updated))
      return false;
  }
  CJbDbCustBlockStoragePtr storage = GetStorage(newBlockId.database(), OdDb::kForWrite, false);
  OdDbObjectId graphId;
  if (storage.isNull() || !storage->IsBlockMaster(masterId) ||
      !storage->GetMasterBlockGraphId(masterId, graphId))
    return false;
  CJbDbCustBlockGraphInstanceContext context(kPlainState, masterId.database());
  OdResBufPtr chain = updated->SaveInstance(&context);
  ApplyMappingToCustomData(chain, mapping);
  return storage->SetCustomData(masterId, newBlockId, chain);
}

bool CJbDbCustBlockStorage::ApplyMappingToCustomData(OdResBufPtr chain,
                                                     const OdDbIdMapping& mapping) {
  // Only soft pointers are instance references; the other id kinds keep what they name.
  for (OdResBuf* item = chain.get(); item; item = item->next().get()) {
    if (item->restype() != OdResBuf::kDxfSoftPointerId) continue;
    const OdDbObjectId clone = cloneOf(mapping, item->getObjectId());
    if (!clone.isNull()) item->setObjectId(clone);
  }
  return true;
}

bool CJbDbCustBlockStorage::CopyMasterBlock(const OdDbObjectId& sourceBlockId,
                                            const OdDbObjectId& destBlockId, OdDbIdMapping& mapping,
                                            bool insideCloneOperation) {
  OdDbDatabase* destDb = destBlockId.database();
  OdDbDatabase* sourceDb = sourceBlockId.database();
  if (!destDb || !sourceDb) return false;
  CJbDbCustBlockStoragePtr storage = GetStorage(destDb, OdDb::kForWrite, true);
  if (storage.isNull()) return false;
  const bool sameBlock = sourceBlockId == destBlockId;

  // References inserted straight from the old master keep their look through an instance.
  if (storage->IsBlockCustomizable(destBlockId)) {
    OdDbObjectId copyId;
    const OdDbObjectIdArray references = directReferences(destBlockId);
    if (storage->CreateBlockInstance(destBlockId, copyId)) pointReferencesAt(references, copyId);
  }

  struct RememberedInstance {
    OdDbObjectId blockId;
    OdResBufPtr state;
    OdDbObjectIdArray references;
  };
  std::vector<RememberedInstance> remembered;
  OdArray<OdDbObjectId> instances;
  storage->GetAllBlockInstancesForMasterBlock(destBlockId, instances);
  for (const OdDbObjectId& instance : instances) {
    const OdDbObjectIdArray references = directReferences(instance);
    if (references.isEmpty()) {
      eraseObject(instance);
      continue;
    }
    RememberedInstance kept{instance, OdResBufPtr(), references};
    CJbDbCustBlockGraphPtr graph;
    if (storage->GetUpdatedGraph(instance, graph)) {
      CJbDbCustBlockGraphInstanceContext context(kPortableState, destDb);
      kept.state = graph->SaveInstance(&context);
    }
    remembered.push_back(kept);
  }
  if (!sameBlock) storage->RemoveBlock(destBlockId, true);

  OdDbObjectId sourceGraphId;
  OdResBufPtr sourceState;
  {
    CJbDbCustBlockStoragePtr source = GetStorage(sourceDb, OdDb::kForRead, false);
    if (source.isNull() || !source->GetMasterBlockGraphId(sourceBlockId, sourceGraphId) ||
        !source->GetCustomData(sourceBlockId, sourceState))
      return false;
  }
  if (!sameBlock) {
    OdDbObjectId graphId = cloneOf(mapping, sourceGraphId);
    if (graphId.isNull()) {
      const CJbCustBlockDeepCloneReactor::Suspension ownCopy;
      const bool otherDrawing = sourceDb != destDb;
      if (insideCloneOperation) {
        CJbDbCustBlockGraphPtr graph = openAs<CJbDbCustBlockGraph>(sourceGraphId, OdDb::kForRead);
        if (graph.isNull()) return false;
        OdDbObjectPtr clone = otherDrawing ? graph->wblockClone(mapping, storage.get(), true)
                                           : graph->deepClone(mapping, storage.get(), true);
        graphId = clone->objectId();
      } else {
        const OdDbObjectIdArray ids{sourceGraphId};
        if (otherDrawing)
          sourceDb->wblockCloneObjects(ids, storage->objectId(), mapping, OdDb::kDrcIgnore);
        else
          sourceDb->deepCloneObjects(ids, storage->objectId(), mapping);
        graphId = cloneOf(mapping, sourceGraphId);
      }
    }
    if (graphId.isNull() || !storage->AppendMasterBlock(destBlockId, graphId)) return false;
  }
  ApplyMappingToCustomData(sourceState, mapping);
  storage->SetCustomData(destBlockId, sourceState);
  CJbDbCustBlockGraphPtr destGraph;
  if (storage->GetUpdatedGraph(destBlockId, destGraph)) {
    destGraph->Reset(destBlockId, false);
    destGraph->Evaluate(destBlockId, false);
    CJbDbCustBlockGraphInstanceContext context(kPlainState, destDb);
    storage->SetCustomData(destBlockId, destGraph->SaveInstance(&context));
  }

  int resetCount = 0;
  for (const RememberedInstance& kept : remembered) {
    OdDbObjectId instanceId;
    CJbDbCustBlockGraphPtr graph;
    if (!storage->CreateBlockInstance(destBlockId, instanceId) ||
        !storage->GetUpdatedGraph(instanceId, graph))
      continue;
    graph->Reset(instanceId, false);
    pointReferencesAt(kept.references, instanceId);
    CJbDbCustBlockGraphInstanceContext full(kFullState, destDb);
    if (kept.state.isNull() || !graph->LoadInstance(kept.state, &full)) {
      ++resetCount;
    } else {
      graph->EvaluateFromBlockDefinition(instanceId, false);
      if (CJbConstraintUtils* constraints = CJbConstraintUtils::Get())
        constraints->UpdateConstraints(instanceId);
      for (const OdDbObjectId& reference : kept.references)
        CJbDbCustBlockGraph::UpdateAttributes(reference, nullptr);
    }
    CJbDbCustBlockGraphInstanceContext plain(kPlainState, destDb);
    storage->SetCustomData(instanceId, graph->SaveInstance(&plain));
    eraseObject(kept.blockId);
  }
  // The entries of the instance blocks erased above.
  storage->CleanUp();
  if (resetCount > 0) {
    std::string message = odTranslate("customizable_blocks",
                                      "Number of reset blocks due to incompatible changes: %1.")
                              .str();
    const std::size_t at = message.find("%1");
    if (at != std::string::npos) message.replace(at, 2, std::to_string(resetCount));
    CJbSystemServices::Get()->ShowMessage(message);
  }
  return true;
}

void CJbDbCustBlockStorage::RemoveBlockCustomization(const OdDbObjectId& blockId,
                                                     bool removeFromStorage,
                                                     bool removeOutsideData) {
  OdDbBlockTableRecordPtr block = openAs<OdDbBlockTableRecord>(blockId, OdDb::kForWrite);
  if (block.isNull()) return;
  if (removeOutsideData) {
    if (CJbCustBlockConverterUtils* converter = CJbCustBlockConverterUtils::Get()) {
      // The host's converter opens the block itself.
      block.release();
      converter->RemoveOutsideData(blockId);
    } else {
      const OdDbObjectId dictionaryId = block->extensionDictionary();
      if (!dictionaryId.isNull()) {
        if (OdDbDictionaryPtr dictionary = openAs<OdDbDictionary>(dictionaryId, OdDb::kForWrite)) {
          eraseObject(dictionary->getAt(kEnhancedBlockKey));
          dictionary->remove(kEnhancedBlockKey);
          dictionary->remove(kRoundTripPurgePreventerKey);
        }
        block->releaseExtensionDictionary();
      }
      // Only applications the block carries: clearing one would register its name otherwise.
      for (const char* application : kOutsideApplications) {
        if (block->xData(application).isNull()) continue;
        block->setXData(OdResBuf::newRb(kApplicationNameCode, application).get());
      }
    }
  }
  if (removeFromStorage) {
    if (CJbDbCustBlockStoragePtr storage = GetStorage(blockId.database(), OdDb::kForWrite, false))
      storage->RemoveBlock(blockId, true);
  }
}

void CJbDbCustBlockStorage::RemoveReferenceCustomization(const OdDbObjectId& referenceId,
                                                         bool removeBlockFromStorage,
                                                         bool restoreDynamicBlock) {
  OdDbBlockReferencePtr reference = openAs<OdDbBlockReference>(referenceId, OdDb::kForWrite);
  if (reference.isNull()) return;
  if (removeBlockFromStorage) {
    if (CJbDbCustBlockStoragePtr storage =
            GetStorage(referenceId.database(), OdDb::kForWrite, false))
      storage->RemoveBlock(reference->blockTableRecord(), true);
  }
  if (!restoreDynamicBlock) return;
  const OdDbObjectId dynamicBlockId = CJbUtils::GetDynBlockId(referenceId);
  if (dynamicBlockId.isValid()) reference->setBlockTableRecord(dynamicBlockId);
  const OdDbObjectId dictionaryId = reference->extensionDictionary();
  if (dictionaryId.isNull()) return;
  if (OdDbDictionaryPtr dictionary = openAs<OdDbDictionary>(dictionaryId, OdDb::kForWrite))
    dictionary->remove(kBlockRepresentationKey);
  reference->releaseExtensionDictionary();
}

OdResult CJbDbCustBlockStorage::dwgInFields(OdDbDwgFiler* filer) {
  OdResult result = OdDbObject::dwgInFields(filer);
  if (result != eOk) return result;
  CJbDbCustBlockStorageImpl& impl = *m_pImpl;
  try {
    impl.m_reserved1 = filer->rdInt32();
    impl.m_reserved2 = filer->rdInt32();
    impl.m_entries.clear();
    const int count = filer->rdInt32();
    for (int i = 0; i < count; ++i) {
      CustBlockStorageEntry entry;
      entry.blockId = filer->rdSoftPointerId();
      entry.masterBlockId = filer->rdSoftPointerId();
      entry.blockName = filer->rdString();
      entry.graphId = entry.IsMaster() ? filer->rdHardOwnershipId() : filer->rdSoftPointerId();
      entry.customDataId = filer->rdHardOwnershipId();
      if (filer->filerStatus() != eOk) break;
      if (!entry.blockId.isNull()) impl.m_entries[entry.blockId] = entry;
    }
  } catch (const OdError& error) {
    return error.code();
  } catch (const std::bad_alloc&) {
    return eOutOfMemory;
  }
  return filer->filerStatus();
}

void CJbDbCustBlockStorage::dwgOutFields(OdDbDwgFiler* filer) const {
  assertReadEnabled();
  OdDbObject::dwgOutFields(filer);
  const CJbDbCustBlockStorageImpl& impl = *m_pImpl;
  filer->wrInt32(impl.m_reserved1);
  filer->wrInt32(impl.m_reserved2);
  filer->wrInt32(static_cast<std::int32_t>(impl.m_entries.size()));
  for (const auto& item : impl.m_entries) {
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

OdResult CJbDbCustBlockStorage::dxfInFields(OdDbDxfFiler* filer) {
  OdResult result = OdDbObject::dxfInFields(filer);
  if (result != eOk) return result;
  if (!filer->atSubclassData(kSubclass)) return eBadDxfSequence;
  CJbDbCustBlockStorageImpl& impl = *m_pImpl;
  std::int32_t header[3] = {0, 0, 0};  // reserved1, reserved2, count
  for (int i = 0; i < 3; ++i) {
    if (!nextGroupIs(filer, 90)) return eBadDxfSequence;
    header[i] = filer->rdInt32();
    if (i == 1) impl.m_entries.clear();
  }
  impl.m_reserved1 = header[0];
  impl.m_reserved2 = header[1];
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
    if (!entry.blockId.isNull()) impl.m_entries[entry.blockId] = entry;
  }
  return filer->filerStatus();
}

void CJbDbCustBlockStorage::dxfOutFields(OdDbDxfFiler* filer) const {
  assertReadEnabled();
  OdDbObject::dxfOutFields(filer);
  const CJbDbCustBlockStorageImpl& impl = *m_pImpl;
  filer->wrSubclassMarker(kSubclass);
  filer->wrInt32(90, impl.m_reserved1);
  filer->wrInt32(90, impl.m_reserved2);
  filer->wrInt32(90, static_cast<std::int32_t>(impl.m_entries.size()));
  for (const auto& item : impl.m_entries) {
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

void CJbDbCustBlockStorage::AuditEntry(const OdDbObjectId& blockId, OdDbAuditInfo* auditInfo) {
  const CustBlockStorageEntry* entry = m_pImpl->Find(blockId);
  if (!entry) return;
  const bool fix = auditInfo->fixErrors();
  const OdString name = "block " + blockId.getHandle().ascii();
  const auto report = [&](const OdString& value, const OdString& validation,
                          const OdString& repair) {
    auditInfo->errorsFound(1);
    auditInfo->printError(describe(), name + ": " + value, validation, repair);
  };

  if (!OdDbBlockTableRecord::cast(blockId.openObjectShared(OdDb::kForRead).get())) {
    report("not a live block definition", "a block definition in the drawing", "entry removed");
    if (fix) {
      RemoveBlock(blockId, true);
      auditInfo->errorsFixed(1);
    }
    return;
  }
  const CustBlockStorageEntry* master = m_pImpl->FindMaster(blockId);
  CJbDbCustBlockGraphPtr graph = master
                                     ? openAs<CJbDbCustBlockGraph>(master->graphId, OdDb::kForRead)
                                     : CJbDbCustBlockGraphPtr();
  if (graph.isNull()) {
    report(master ? "master without an evaluation graph" : "instance without a master",
           "a master owning its graph", "entry removed");
    if (fix) {
      m_pImpl->m_entries.erase(blockId);
      auditInfo->errorsFixed(1);
    }
    return;
  }
  if (entry->IsMaster() && graph->IsOlderVersion()) {
    report("graph of an older format", "the current graph format", "upgraded");
    if (fix) {
      graph->upgradeOpen();
      graph->UpgradeToCurrentVersion();
      auditInfo->errorsFixed(1);
    }
  }
  graph.release();
  if (entry->customDataId.isNull()) return;
  OdDbXrecordPtr record = openAs<OdDbXrecord>(entry->customDataId, OdDb::kForRead);
  if (record.isNull()) {
    report("state is no extension record", "an extension record of instance state",
           "default state");
    if (fix) {
      m_pImpl->Find(blockId)->customDataId = OdDbObjectId::kNull;
      auditInfo->errorsFixed(1);
    }
    return;
  }
  const OdResBufPtr chain = stateOf(record.get());
  record.release();
  CJbDbCustBlockGraphPtr updated;
  if (!GetUpdatedGraph(blockId, updated)) return;
  CJbDbCustBlockGraphInstanceContext context(kPlainState, database());
  const bool loads = !chain.isNull() && updated->LoadInstance(chain, &context);
  const int version = updated->GetMajorVersion() * 100 + updated->GetMinorVersion();
  if (loads && chainVersion(chain.get()) == version) return;
  report(loads ? "state of an older format" : "state that does not load",
         "state saved by the current graph", "saved again");
  if (fix) {
    SetCustomData(blockId, updated->SaveInstance(&context));
    auditInfo->errorsFixed(1);
  }
}

void CJbDbCustBlockStorage::audit(OdDbAuditInfo* auditInfo) {
  OdDbObject::audit(auditInfo);
  OdArray<OdDbObjectId> ids;
  for (const auto& entry : m_pImpl->m_entries)
    ids.append(entry.first);
  // Masters first, so that their graphs are current before the instances' state is checked.
  for (bool masters : {true, false}) {
    for (const OdDbObjectId& id : ids) {
      const CustBlockStorageEntry* entry = m_pImpl->Find(id);
      if (entry && entry->IsMaster() == masters) AuditEntry(id, auditInfo);
    }
  }
}
