// One edit of one customizable block reference.
#include "storage/CJbCustBlockEditorHelper.h"

#include <exception>
#include <memory>

#include "core/CJbDbCustBlockAttributeSnapshot.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/host/CJbConstraintUtils.h"
#include "storage/CJbCustBlockObjectAccess.h"
#include "storage/CJbCustBlockStateRecord.h"
#include "storage/CJbDbCustBlockStorage.h"

namespace {
using Access = CJbCustBlockObjectAccess;

OdDbBlockReferencePtr openReference(const OdDbObjectId& id, OdDb::OpenMode mode) {
  return Access::Open<OdDbBlockReference>(id, mode);
}

OdString handleOf(const OdDbObjectId& id) {
  return id.isNull() ? OdString("(null)") : id.getHandle().ascii();
}

CJbCustBlockResult notCustomizable(const OdDbObjectId& referenceId) {
  return CJbCustBlockResult::Failure(eNotApplicable,
                                     "The block reference %1 shows no customizable block.",
                                     {handleOf(referenceId)});
}

CJbCustBlockResult notWritable(const OdDbObjectId& referenceId) {
  return CJbCustBlockResult::Failure(eNotOpenForWrite,
                                     "The block reference %1 cannot be opened for write.",
                                     {handleOf(referenceId)});
}
}  // namespace

CJbCustBlockEditorHelper::CJbCustBlockEditorHelper(const OdDbObjectId& blockReferenceId)
    : m_referenceId(blockReferenceId), m_uncaughtExceptions(std::uncaught_exceptions()) {
  if (OdDbBlockReferencePtr reference = openReference(blockReferenceId, OdDb::kForRead))
    m_blockId = reference->blockTableRecord();
  m_originalBlockId = m_blockId;
}

CJbCustBlockEditorHelper::~CJbCustBlockEditorHelper() {
  try {
    if (std::uncaught_exceptions() > m_uncaughtExceptions)
      Cancel();
    else
      Commit();
  } catch (const OdError&) {
    // A destructor cannot report; Commit() called directly does.
  }
}

CJbCustBlockResult CJbCustBlockEditorHelper::PrepareInstance() {
  CJbDbCustBlockStoragePtr storage =
      CJbDbCustBlockStorage::GetStorage(m_referenceId.database(), OdDb::kForWrite, false);
  if (storage.isNull() || !storage->IsBlockCustomizable(m_blockId))
    return notCustomizable(m_referenceId);
  if (storage->IsNewBlockInstanceRequired(m_blockId)) {
    OdDbObjectId newBlockId;
    if (const CJbCustBlockResult created = storage->CreateBlockInstance(m_blockId, newBlockId);
        !created)
      return created;
    m_blockId = newBlockId;
    OdDbBlockReferencePtr reference = openReference(m_referenceId, OdDb::kForWrite);
    if (reference.isNull()) return notWritable(m_referenceId);
    reference->setBlockTableRecord(newBlockId);
  }
  // The edit saves state in the current format: a master read at an older one is brought up now.
  OdDbObjectId graphId;
  if (storage->GetMasterBlockGraphId(m_blockId, graphId)) {
    CJbDbCustBlockGraphPtr master = Access::Open<CJbDbCustBlockGraph>(graphId, OdDb::kForRead);
    if (master && master->IsOlderVersion()) {
      master->upgradeOpen();
      master->UpgradeToCurrentVersion();
    }
  }
  m_prepared = true;
  return CJbCustBlockResult();
}

CJbDbCustBlockGraphPtr CJbCustBlockEditorHelper::GetGraph(OdDb::OpenMode mode,
                                                          CJbCustBlockResult& result) {
  result = CJbCustBlockResult();
  if (mode == OdDb::kForWrite && !m_prepared) {
    result = PrepareInstance();
    if (!result) return CJbDbCustBlockGraphPtr();
  }
  if (m_graph.isNull()) {
    CJbDbCustBlockStoragePtr storage =
        CJbDbCustBlockStorage::GetStorage(m_referenceId.database(), OdDb::kForRead, false);
    if (storage.isNull() || !storage->IsBlockCustomizable(m_blockId)) {
      result = notCustomizable(m_referenceId);
      return CJbDbCustBlockGraphPtr();
    }
    result = storage->GetUpdatedGraph(m_blockId, m_graph);
  }
  return m_graph;
}

CJbDbCustBlockGraphPtr CJbCustBlockEditorHelper::GetGraph(OdDb::OpenMode mode) {
  CJbCustBlockResult ignored;
  return GetGraph(mode, ignored);
}

CJbCustBlockResult CJbCustBlockEditorHelper::Commit() {
  if (!m_prepared || m_graph.isNull()) {
    m_graph.release();
    return CJbCustBlockResult::Failure(eNotApplicable,
                                       "The edit of block reference %1 has nothing to commit.",
                                       {handleOf(m_referenceId)});
  }
  const CJbDbCustBlockGraphPtr graph = m_graph;
  m_graph.release();
  m_prepared = false;
  // Whatever happens now, the edit is over: a later cancel keeps the block it made.
  m_originalBlockId = m_blockId;
  // Held for write through the evaluation, so that the elements that move or turn the reference
  // share this opening whether or not the caller already holds it.
  OdDbBlockReferencePtr reference = openReference(m_referenceId, OdDb::kForWrite);
  if (reference.isNull()) return notWritable(m_referenceId);
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
  if (storage.isNull()) return notCustomizable(m_referenceId);
  CJbDbCustBlockGraphInstanceContext context(CJbCustBlockStateRecord::kPlainState,
                                             m_blockId.database());
  return storage->SetCustomData(m_blockId, graph->SaveInstance(&context));
}

void CJbCustBlockEditorHelper::Cancel() {
  m_graph.release();
  m_prepared = false;
  if (m_blockId == m_originalBlockId) return;
  const OdDbObjectId copyId = m_blockId;
  m_blockId = m_originalBlockId;
  if (OdDbBlockReferencePtr reference = openReference(m_referenceId, OdDb::kForWrite))
    reference->setBlockTableRecord(m_originalBlockId);
  if (CJbDbCustBlockStoragePtr storage =
          CJbDbCustBlockStorage::GetStorage(m_referenceId.database(), OdDb::kForWrite, false))
    storage->RemoveBlock(copyId, false);
  Access::Erase(copyId);
}
