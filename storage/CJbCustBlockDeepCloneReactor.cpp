// Customization carried along by clone operations.
#include "storage/CJbCustBlockDeepCloneReactor.h"

#include <vector>

#include "platform/db/cloning/OdRxEvent.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/rx/OdRxClass.h"
#include "storage/CJbCustBlockObjectAccess.h"
#include "storage/CJbDbCustBlockStorage.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockDeepCloneReactor, "JbCustBlockDeepCloneReactor",
                               OdRxEventReactor)

namespace {
thread_local int t_suspensions = 0;

// The cloned blocks of an operation that the source drawing knows as customizable, masters and
// instances apart.
struct ClonedBlocks {
  std::vector<OdDbIdPair> masters;
  std::vector<OdDbIdPair> instances;
};

ClonedBlocks clonedBlocks(const OdDbIdMapping& mapping) {
  ClonedBlocks found;
  CJbDbCustBlockStoragePtr storage =
      CJbDbCustBlockStorage::GetStorage(mapping.origDb(), OdDb::kForRead, false);
  if (storage.isNull()) return found;
  for (OdDbIdMappingIterPtr it = mapping.newIterator(); !it->done(); it->next()) {
    OdDbIdPair pair;
    it->getMap(pair);
    if (!pair.isCloned() || pair.value().isNull() || !storage->IsBlockCustomizable(pair.key()))
      continue;
    (storage->IsBlockMaster(pair.key()) ? found.masters : found.instances).push_back(pair);
  }
  return found;
}
}  // namespace

CJbCustBlockDeepCloneReactor::Suspension::Suspension() {
  ++t_suspensions;
}

CJbCustBlockDeepCloneReactor::Suspension::~Suspension() {
  --t_suspensions;
}

bool CJbCustBlockDeepCloneReactor::IsSuspended() {
  return t_suspensions > 0;
}

void CJbCustBlockDeepCloneReactor::Attach() {
  if (!IsAttached()) odrxEvent()->addReactor(this);
}

void CJbCustBlockDeepCloneReactor::Detach() {
  odrxEvent()->removeReactor(this);
}

bool CJbCustBlockDeepCloneReactor::IsAttached() const {
  return odrxEvent()->hasReactor(this);
}

void CJbCustBlockDeepCloneReactor::beginDeepCloneXlation(OdDbIdMapping& mapping) {
  if (IsSuspended()) return;
  const ClonedBlocks cloned = clonedBlocks(mapping);
  if (cloned.masters.empty()) return;
  const Suspension working;
  OdDbObjectIdArray graphIds;
  {
    CJbDbCustBlockStoragePtr source =
        CJbDbCustBlockStorage::GetStorage(mapping.origDb(), OdDb::kForRead, false);
    for (const OdDbIdPair& pair : cloned.masters) {
      OdDbObjectId graphId;
      if (source->GetMasterBlockGraphId(pair.key(), graphId)) graphIds.append(graphId);
    }
  }
  CJbDbCustBlockStoragePtr destination =
      CJbDbCustBlockStorage::GetStorage(mapping.destDb(), OdDb::kForWrite, true);
  const bool otherDrawing = mapping.origDb() != mapping.destDb();
  for (const OdDbObjectId& graphId : graphIds) {
    if (!CJbCustBlockObjectAccess::CloneOf(mapping, graphId).isNull()) continue;
    CJbDbCustBlockGraphPtr graph =
        CJbDbCustBlockGraph::cast(graphId.openObjectShared(OdDb::kForRead).get());
    if (graph.isNull()) continue;
    if (otherDrawing)
      graph->wblockClone(mapping, destination.get(), true);
    else
      graph->deepClone(mapping, destination.get(), true);
  }
}

void CJbCustBlockDeepCloneReactor::endDeepClone(OdDbIdMapping& mapping) {
  if (IsSuspended()) return;
  const ClonedBlocks cloned = clonedBlocks(mapping);
  if (cloned.masters.empty() && cloned.instances.empty()) return;
  const Suspension working;
  for (const OdDbIdPair& pair : cloned.masters)
    CJbDbCustBlockStorage::CopyMasterBlock(pair.key(), pair.value(), mapping, true);
  for (const OdDbIdPair& pair : cloned.instances) {
    OdDbObjectId sourceMaster;
    {
      CJbDbCustBlockStoragePtr source =
          CJbDbCustBlockStorage::GetStorage(mapping.origDb(), OdDb::kForRead, false);
      source->GetMasterBlockId(pair.key(), sourceMaster);
    }
    // A master cloned along stands for its original; within one drawing the original serves.
    OdDbObjectId master = CJbCustBlockObjectAccess::CloneOf(mapping, sourceMaster);
    if (master.isNull() && mapping.origDb() == mapping.destDb()) master = sourceMaster;
    {
      CJbDbCustBlockStoragePtr destination =
          CJbDbCustBlockStorage::GetStorage(mapping.destDb(), OdDb::kForRead, false);
      if (destination.isNull() || destination->IsBlockCustomizable(pair.value())) continue;
    }
    CJbDbCustBlockStorage::CopyBlockInstance(pair.key(), master, pair.value(), mapping);
  }
}
