// What every evaluation hook receives: the mode of the evaluation and the block it runs for.
#pragma once

#include "platform/db/OdDbObjectId.h"
#include "platform/rx/OdRxObject.h"

class CJbDbCustBlockGraphEvaluationContext : public OdRxObject {
 public:
  enum Mode {
    kIgnoreBlockEntities = 1,
    kAfterBlockRedefine = 2,
    kModifyBlockReferences = 4,
  };

  CJbDbCustBlockGraphEvaluationContext(int mode, const OdDbObjectId& currentBlockId)
      : m_mode(mode), m_currentBlockId(currentBlockId) {}

  int GetMode() const { return m_mode; }
  // Elements must not touch the entities of the block.
  bool IgnoreBlockEntities() const { return (m_mode & kIgnoreBlockEntities) != 0; }
  bool IsAfterBlockRedefine() const { return (m_mode & kAfterBlockRedefine) != 0; }
  // Elements may change the block reference itself, not only the block's contents.
  bool ModifyBlockReferences() const { return (m_mode & kModifyBlockReferences) != 0; }
  // The block reference or block definition being evaluated.
  const OdDbObjectId& GetCurrentBlockId() const { return m_currentBlockId; }

 private:
  int m_mode;
  OdDbObjectId m_currentBlockId;
};

using CJbDbCustBlockGraphEvaluationContextPtr = OdSmartPtr<CJbDbCustBlockGraphEvaluationContext>;
