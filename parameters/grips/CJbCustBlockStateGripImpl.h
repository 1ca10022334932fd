// The data of grips that request a state of a list-like parameter (alignment, lookup,
// visibility): whether a state is requested, and which.
#pragma once

#include "parameters/grips/CJbCustBlockGripImpl.h"

class CJbCustBlockGrip;

class CJbCustBlockStateGripImpl : public CJbCustBlockGripImpl {
 public:
  // The requested state, else the state the grip's parameter proposes, else 0.
  int State(const CJbCustBlockGrip& grip) const;
  bool IsRequested() const { return m_stateRequested; }
  // A request is the grip's own: it is no instance state and no change of the graph.
  void Request(int state) {
    m_stateRequested = true;
    m_requestedState = state;
  }
  void ClearRequest() { m_stateRequested = false; }

 private:
  bool m_stateRequested = false;
  int m_requestedState = 0;
};
