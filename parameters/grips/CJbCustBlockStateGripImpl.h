// The data of grips that request a state of a list-like parameter (alignment, lookup,
// visibility): whether a state is requested, and which.
#pragma once

#include "parameters/grips/CJbCustBlockGripImpl.h"

class CJbCustBlockGrip;

class CJbCustBlockStateGripImpl : public CJbCustBlockGripImpl {
 public:
  // The requested state, else the state the grip's parameter proposes, else 0.
  int State(const CJbCustBlockGrip& grip) const;

  bool m_stateRequested = false;
  int m_requestedState = 0;
};
