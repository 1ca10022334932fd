// One edit of one customizable block reference, as grips and the properties palette make it: the
// graph for write gives the reference a block of its own first (at most one copy per edit), the
// graph comes loaded with the block's state, and ending the edit evaluates the block, updates the
// reference's attributes and saves the state. Requests for read never copy anything.
#pragma once

#include "core/CJbDbCustBlockGraph.h"
#include "platform/db/OdDbObjectId.h"

class CJbCustBlockEditorHelper {
 public:
  explicit CJbCustBlockEditorHelper(const OdDbObjectId& blockReferenceId);
  // Commits a prepared edit; a failed commit leaves the block as the evaluation left it.
  ~CJbCustBlockEditorHelper();
  CJbCustBlockEditorHelper(const CJbCustBlockEditorHelper&) = delete;
  CJbCustBlockEditorHelper& operator=(const CJbCustBlockEditorHelper&) = delete;

  // The graph loaded with the state of the reference's block, or null when the block is no
  // customizable block (or could not be copied for write).
  CJbDbCustBlockGraphPtr GetGraph(OdDb::OpenMode mode);
  // The block the reference shows: after a write request, its own block.
  OdDbObjectId GetBlockId() const { return m_blockId; }
  OdDbObjectId GetBlockReferenceId() const { return m_referenceId; }
  // Ends the edit now: evaluates and saves a prepared edit and releases the graph. False when
  // there was nothing to commit or the state could not be stored.
  bool Commit();

 private:
  bool PrepareInstance();

  OdDbObjectId m_referenceId;
  OdDbObjectId m_blockId;
  CJbDbCustBlockGraphPtr m_graph;
  bool m_prepared = false;
};
