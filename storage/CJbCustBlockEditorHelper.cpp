// One edit of one customizable block reference.
#include "storage/CJbCustBlockEditorHelper.h"

#include <memory>

#include "core/CJbDbCustBlockAttributeSnapshot.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/host/CJbConstraintUtils.h"
#include "storage/CJbDbCustBlockStorage.h"

namespace {
OdDbBlockReferencePtr openReference(const OdDbObjectId& id, OdDb::OpenMode mode) {
  return OdDbBlockReference::cast(id.openObjectShared(mode).get());
}
}  // namespace

CJbCustBlockEditorHelper::CJbCustBlockEditorHelper(const OdDbObjectId& blockReferenceId)
    : m_referenceId(blockReferenceId) {
  if (OdDbBlockReferencePtr reference = openReference(blockReferenceId, OdDb::kForRead))
    m_blockId = reference->blockTableRecord();
}

CJbCustBlockEditorHelper::~CJbCustBlockEditorHelper() {
  try {
    Commit();
  } catch (const OdError&) {
    // A destructor cannot report; Commit() called directly does.
  }
}

bool CJbCustBlockEditorHelper::PrepareInstance() {
  CJbDbCustBlockStoragePtr storage =
      CJbDbCustBlockStorage::GetStorage(m_referenceId.database(), OdDb::kForWrite, false);
  if (storage.isNull() || !storage->IsBlockCustomizable(m_blockId)) return false;
  if (storage->IsNewBlockInstanceRequired(m_blockId)) {
    OdDbObjectId newBlockId;
    if (!storage->CreateBlockInstance(m_blockId, newBlockId)) return false;
    m_blockId = newBlockId;
    OdDbBlockReferencePtr reference = openReference(m_referenceId, OdDb::kForWrite);
    if (reference.isNull()) return false;
    reference->setBlockTableRecord(newBlockId);
  }
  // The edit saves state in the current format: a master read at an older one is brought up now.
  OdDbObjectId graphId;
  if (storage->GetMasterBlockGraphId(m_blockId, graphId)) {
    CJbDbCustBlockGraphPtr master =
        CJbDbCustBlockGraph::cast(graphId.openObjectShared(OdDb::kForRead).get());
    if (master && master->IsOlderVersion()) {
      master->upgradeOpen();
      master->UpgradeToCurrentVersion();
    }
  }
  m_prepared = true;
  return true;
}

CJbDbCustBlockGraphPtr CJbCustBlockEditorHelper::GetGraph(OdDb::OpenMode mode) {
  if (mode == OdDb::kForWrite && !m_prepared && !PrepareInstance()) return CJbDbCustBlockGraphPtr();
  if (m_graph.isNull()) {
    CJbDbCustBlockStoragePtr storage =
        CJbDbCustBlockStorage::GetStorage(m_referenceId.database(), OdDb::kForRead, false);
    if (storage.isNull() || !storage->GetUpdatedGraph(m_blockId, m_graph))
      return CJbDbCustBlockGraphPtr();
  }
  return m_graph;
}

bool CJbCustBlockEditorHelper::Commit() {
  if (!m_prepared || m_graph.isNull()) {
    m_graph.release();
    return false;
  }
  const CJbDbCustBlockGraphPtr graph = m_graph;
  m_graph.release();
  m_prepared = false;
  // Held for write through the evaluation, so that the elements that move or turn the reference
  // share this opening whether or not the caller already holds it.
  OdDbBlockReferencePtr reference = openReference(m_referenceId, OdDb::kForWrite);
  if (reference.isNull()) return false;
  reference->assertWriteEnabled();
  CJbDbCustBlockAttributeSnapshot* taken = nullptr;
  CJbDbCustBlockGraph::BeginUpdateAttributes(m_referenceId, taken);
  const std::unique_ptr<CJbDbCustBlockAttributeSnapshot> snapshot(taken);
  graph->Evaluate(m_referenceId, true);
  if (CJbConstraintUtils* constraints = CJbConstraintUtils::Get())
    constraints->UpdateConstraints(m_blockId);
  CJbDbCustBlockGraph::UpdateAttributes(m_referenceId, snapshot.get());
  CJbDbCustBlockStoragePtr storage =
      CJbDbCustBlockStorage::GetStorage(m_referenceId.database(), OdDb::kForWrite, false);
  if (storage.isNull()) return false;
  CJbDbCustBlockGraphInstanceContext context(0, m_blockId.database());
  return storage->SetCustomData(m_blockId, graph->SaveInstance(&context));
}
