// The data of an alignment parameter: its base point (0) and a point along the block's own
// alignment direction (1), whether the block turns perpendicular to the geometry it is aligned
// with or along it, and the state it proposes (1 when the reference was last aligned).
#pragma once

#include "parameters/CJbCustBlockParameterImpl.h"

class CJbCustBlockAlignmentParameterImpl : public CJbCustBlockParameterImpl {
 public:
  CJbCustBlockAlignmentParameterImpl() : CJbCustBlockParameterImpl(2) {}

  bool m_perpendicular = true;
  int m_updatedState = 0;
};
