// The data of an array action: the spacing of its copies along the parameter's two directions,
// the copies the last evaluation made in the evaluated block, and whether an evaluation is under
// way.
#pragma once

#include "actions/CJbCustBlockActionImpl.h"

class CJbCustBlockArrayActionImpl : public CJbCustBlockActionImpl {
 public:
  CJbCustBlockArrayActionImpl() : CJbCustBlockActionImpl(kNoModifier, 1) {}

  double m_columnDistance = 1.0;
  double m_rowDistance = 1.0;
  OdArray<OdDbObjectId> m_copies;
  // Set by Evaluate and consumed by EndEvaluate, so a plain load never makes copies.
  bool m_evaluated = false;
};
