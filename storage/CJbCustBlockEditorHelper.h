// One edit of one customizable block reference, as grips and the properties palette make it: the
// graph for write gives the reference a block of its own first (at most one copy per edit), the
// graph comes loaded with the block's state, and ending the edit evaluates the block, updates the
// reference's attributes and saves the state. Requests for read never copy anything.
#pragma once

#include "core/CJbDbCustBlockGraph.h"
#include "platform/db/OdDbObjectId.h"
#include "storage/CJbCustBlockResult.h"

class CJbCustBlockEditorHelper {
 public:
  explicit CJbCustBlockEditorHelper(const OdDbObjectId& blockReferenceId);
  // Commits a prepared edit, except while an exception unwinds past the helper: an edit broken
  // off half-way is cancelled. A failed commit leaves the block as the evaluation left it.
  ~CJbCustBlockEditorHelper();
  CJbCustBlockEditorHelper(const CJbCustBlockEditorHelper&) = delete;
  CJbCustBlockEditorHelper& operator=(const CJbCustBlockEditorHelper&) = delete;

  // The graph loaded with the state of the reference's block, or null when the block is no
  // customizable block (or could not be copied for write); `result` says why.
  CJbDbCustBlockGraphPtr GetGraph(OdDb::OpenMode mode, CJbCustBlockResult& result);
  CJbDbCustBlockGraphPtr GetGraph(OdDb::OpenMode mode);
  // The block the reference shows: after a write request, its own block.
  OdDbObjectId GetBlockId() const { return m_blockId; }
  OdDbObjectId GetBlockReferenceId() const { return m_referenceId; }
  // Ends the edit now: evaluates and saves a prepared edit and releases the graph. Fails when
  // there was nothing to commit or the state could not be stored.
  CJbCustBlockResult Commit();
  // Ends the edit without evaluating or saving anything: the reference goes back to the block it
  // showed, and a block copied for this edit is dropped again. Nothing to do after a commit.
  void Cancel();

 private:
  CJbCustBlockResult PrepareInstance();

  OdDbObjectId m_referenceId;
  // The block the reference showed when the edit began, or at the last commit.
  OdDbObjectId m_originalBlockId;
  OdDbObjectId m_blockId;
  CJbDbCustBlockGraphPtr m_graph;
  bool m_prepared = false;
  // Exceptions in flight when the edit began: more at the end means one is unwinding past it.
  int m_uncaughtExceptions;
};
