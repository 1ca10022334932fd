// Copies of customizable blocks.
#include "storage/CJbCustBlockCopier.h"

#include <string>

#include "platform/db/cloning/OdRxEvent.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/host/CJbConstraintUtils.h"
#include "platform/host/CJbSystemServices.h"
#include "storage/CJbCustBlockDeepCloneReactor.h"
#include "storage/CJbCustBlockObjectAccess.h"
#include "storage/CJbCustBlockStateRecord.h"
#include "storage/CJbDbCustBlockStorage.h"

namespace {
using Access = CJbCustBlockObjectAccess;
using StateRecord = CJbCustBlockStateRecord;

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
    const OdDbObjectId cloneId = Access::CloneOf(mapping, m_blockId);
    if (OdDbBlockTableRecordPtr clone =
            Access::Open<OdDbBlockTableRecord>(cloneId, OdDb::kForWrite))
      clone->setName("*U");
  }

 private:
  OdDbObjectId m_blockId;
  const OdDbIdMapping* m_mapping;
};

}  // namespace

OdDbObjectId CJbCustBlockCopier::CopyBlock(const OdDbObjectId& blockId) {
  if (blockId.isNull()) return OdDbObjectId::kNull;
  OdDbObjectId tableId;
  if (OdDbObjectPtr block = blockId.openObjectShared(OdDb::kForRead))
    tableId = block->ownerId();
  else
    return OdDbObjectId::kNull;
  {
    const CJbCustBlockDeepCloneReactor::Suspension ownCopy;
    const BlockTableRecordCloner cloner(blockId, &m_mapping);
    blockId.database()->deepCloneObjects(OdDbObjectIdArray{blockId}, tableId, m_mapping, false);
  }
  const OdDbObjectId cloneId = Access::CloneOf(m_mapping, blockId);
  if (cloneId.isNull()) return cloneId;
  CJbDbCustBlockStorage::RemoveBlockCustomization(cloneId, true, true);
  return cloneId;
}

CJbCustBlockResult CJbCustBlockCopier::CopyState(const OdDbObjectId& sourceBlockId,
                                                 const OdDbObjectId& masterId,
                                                 const OdDbObjectId& newBlockId) {
  CJbDbCustBlockGraphPtr updated;
  {
    CJbDbCustBlockStoragePtr source =
        CJbDbCustBlockStorage::GetStorage(sourceBlockId.database(), OdDb::kForRead, false);
    if (source.isNull() || !source->IsBlockCustomizable(sourceBlockId)) return CJbCustBlockResult();
    if (const CJbCustBlockResult found = source->GetUpdatedGraph(sourceBlockId, updated); !found)
      return found;
  }
  CJbDbCustBlockStoragePtr storage =
      CJbDbCustBlockStorage::GetStorage(newBlockId.database(), OdDb::kForWrite, false);
  if (storage.isNull()) return NoStorage(newBlockId);
  if (!storage->IsBlockMaster(masterId))
    return CJbCustBlockResult::Failure(eNotApplicable,
                                       "The block \"%1\" is no master of customizable blocks.",
                                       {Access::NameOf(masterId)});
  CJbDbCustBlockGraphInstanceContext context(StateRecord::kPlainState, masterId.database());
  OdResBufPtr chain = updated->SaveInstance(&context);
  TranslateStateIds(chain.get(), m_mapping);
  return storage->SetCustomData(masterId, newBlockId, chain);
}

void CJbCustBlockCopier::TranslateStateIds(OdResBuf* chain, const OdDbIdMapping& mapping) {
  // Only soft pointers are instance references; the other id kinds keep what they name.
  for (OdResBuf* item = chain; item; item = item->next().get()) {
    if (item->restype() != OdResBuf::kDxfSoftPointerId) continue;
    const OdDbObjectId clone = Access::CloneOf(mapping, item->getObjectId());
    if (!clone.isNull()) item->setObjectId(clone);
  }
}

CJbCustBlockResult CJbCustBlockCopier::CopyMaster(const OdDbObjectId& sourceBlockId,
                                                  const OdDbObjectId& destBlockId,
                                                  bool insideCloneOperation) {
  OdDbDatabase* destDb = destBlockId.database();
  OdDbDatabase* sourceDb = sourceBlockId.database();
  if (!destDb || !sourceDb)
    return CJbCustBlockResult::Failure(
        eNoDatabase, "The block \"%1\" or \"%2\" belongs to no drawing.",
        {Access::NameOf(sourceBlockId), Access::NameOf(destBlockId)});
  CJbDbCustBlockStoragePtr storage =
      CJbDbCustBlockStorage::GetStorage(destDb, OdDb::kForWrite, true);
  if (storage.isNull()) return NoStorage(destBlockId);
  const bool sameBlock = sourceBlockId == destBlockId;

  MoveReferencesOffMaster(storage.get(), destBlockId);
  const std::vector<RememberedInstance> remembered = RememberInstances(storage.get(), destBlockId);
  if (!sameBlock) storage->RemoveBlock(destBlockId, true);

  OdDbObjectId sourceGraphId;
  OdResBufPtr sourceState;
  {
    CJbDbCustBlockStoragePtr source =
        CJbDbCustBlockStorage::GetStorage(sourceDb, OdDb::kForRead, false);
    if (source.isNull()) return NoStorage(sourceBlockId);
    if (const CJbCustBlockResult found =
            source->GetMasterBlockGraphId(sourceBlockId, sourceGraphId);
        !found)
      return found;
    if (const CJbCustBlockResult found = source->GetCustomData(sourceBlockId, sourceState); !found)
      return found;
  }
  if (!sameBlock) {
    OdDbObjectId graphId = CloneGraph(sourceGraphId, storage.get(), insideCloneOperation);
    if (graphId.isNull())
      return CJbCustBlockResult::Failure(eNotApplicable,
                                         "The evaluation graph of block \"%1\" cannot be copied.",
                                         {Access::NameOf(sourceBlockId)});
    if (const CJbCustBlockResult appended = storage->AppendMasterBlock(destBlockId, graphId);
        !appended)
      return appended;
  }
  TranslateStateIds(sourceState.get(), m_mapping);
  storage->SetCustomData(destBlockId, sourceState);
  CJbDbCustBlockGraphPtr destGraph;
  if (storage->GetUpdatedGraph(destBlockId, destGraph)) {
    destGraph->Reset(destBlockId, false);
    destGraph->Evaluate(destBlockId, false);
    CJbDbCustBlockGraphInstanceContext context(StateRecord::kPlainState, destDb);
    storage->SetCustomData(destBlockId, destGraph->SaveInstance(&context));
  }

  const int resetCount = RebuildInstances(storage.get(), destBlockId, remembered);
  // The entries of the instance blocks erased above.
  storage->CleanUp();
  if (resetCount > 0)
    CJbSystemServices::Get()->ShowMessage(
        CJbCustBlockResult::Text("Number of reset blocks due to incompatible changes: %1.",
                                 {OdString(std::to_string(resetCount).c_str())}));
  return CJbCustBlockResult();
}

CJbCustBlockResult CJbCustBlockCopier::NoStorage(const OdDbObjectId& blockId) {
  return CJbCustBlockResult::Failure(eKeyNotFound,
                                     "The drawing of block \"%1\" has no customizable blocks.",
                                     {Access::NameOf(blockId)});
}

void CJbCustBlockCopier::MoveReferencesOffMaster(CJbDbCustBlockStorage* storage,
                                                 const OdDbObjectId& masterId) {
  if (!storage->IsBlockCustomizable(masterId)) return;
  OdDbObjectId copyId;
  const OdDbObjectIdArray references = Access::DirectReferences(masterId);
  if (storage->CreateBlockInstance(masterId, copyId)) Access::PointReferencesAt(references, copyId);
}

std::vector<CJbCustBlockCopier::RememberedInstance> CJbCustBlockCopier::RememberInstances(
    CJbDbCustBlockStorage* storage, const OdDbObjectId& masterId) {
  std::vector<RememberedInstance> remembered;
  OdArray<OdDbObjectId> instances;
  storage->GetAllBlockInstancesForMasterBlock(masterId, instances);
  for (const OdDbObjectId& instance : instances) {
    const OdDbObjectIdArray references = Access::DirectReferences(instance);
    if (references.isEmpty()) {
      Access::Erase(instance);
      continue;
    }
    RememberedInstance kept{instance, OdResBufPtr(), references};
    CJbDbCustBlockGraphPtr graph;
    if (storage->GetUpdatedGraph(instance, graph)) {
      CJbDbCustBlockGraphInstanceContext context(StateRecord::kPortableState, masterId.database());
      kept.state = graph->SaveInstance(&context);
    }
    remembered.push_back(kept);
  }
  return remembered;
}

OdDbObjectId CJbCustBlockCopier::CloneGraph(const OdDbObjectId& graphId,
                                            CJbDbCustBlockStorage* storage,
                                            bool insideCloneOperation) {
  const OdDbObjectId cloned = Access::CloneOf(m_mapping, graphId);
  if (!cloned.isNull()) return cloned;
  const CJbCustBlockDeepCloneReactor::Suspension ownCopy;
  OdDbDatabase* sourceDb = graphId.database();
  const bool otherDrawing = sourceDb != storage->database();
  if (insideCloneOperation) {
    CJbDbCustBlockGraphPtr graph = Access::Open<CJbDbCustBlockGraph>(graphId, OdDb::kForRead);
    if (graph.isNull()) return OdDbObjectId::kNull;
    OdDbObjectPtr clone = otherDrawing ? graph->wblockClone(m_mapping, storage, true)
                                       : graph->deepClone(m_mapping, storage, true);
    return clone->objectId();
  }
  const OdDbObjectIdArray ids{graphId};
  if (otherDrawing)
    sourceDb->wblockCloneObjects(ids, storage->objectId(), m_mapping, OdDb::kDrcIgnore);
  else
    sourceDb->deepCloneObjects(ids, storage->objectId(), m_mapping);
  return Access::CloneOf(m_mapping, graphId);
}

int CJbCustBlockCopier::RebuildInstances(CJbDbCustBlockStorage* storage,
                                         const OdDbObjectId& masterId,
                                         const std::vector<RememberedInstance>& remembered) {
  OdDbDatabase* database = masterId.database();
  int resetCount = 0;
  for (const RememberedInstance& kept : remembered) {
    OdDbObjectId instanceId;
    CJbDbCustBlockGraphPtr graph;
    if (!storage->CreateBlockInstance(masterId, instanceId) ||
        !storage->GetUpdatedGraph(instanceId, graph))
      continue;
    graph->Reset(instanceId, false);
    Access::PointReferencesAt(kept.references, instanceId);
    CJbDbCustBlockGraphInstanceContext full(StateRecord::kFullState, database);
    if (kept.state.isNull() || !graph->LoadInstance(kept.state, &full)) {
      ++resetCount;
    } else {
      graph->EvaluateFromBlockDefinition(instanceId, false);
      if (CJbConstraintUtils* constraints = CJbConstraintUtils::Get())
        constraints->UpdateConstraints(instanceId);
      for (const OdDbObjectId& reference : kept.references)
        CJbDbCustBlockGraph::UpdateAttributes(reference, nullptr);
    }
    CJbDbCustBlockGraphInstanceContext plain(StateRecord::kPlainState, database);
    storage->SetCustomData(instanceId, graph->SaveInstance(&plain));
    Access::Erase(kept.blockId);
  }
  return resetCount;
}
