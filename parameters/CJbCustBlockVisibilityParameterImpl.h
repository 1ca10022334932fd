// The data of a visibility parameter: its named states, each with the block entities and elements
// it hides, the state the block editor shows, and the state an instance is in and is asked to take.
// Its one point record only anchors its grip.
#pragma once

#include <vector>

#include "parameters/CJbCustBlockParameterImpl.h"
#include "platform/db/OdDbObjectId.h"

class CJbCustBlockVisibilityParameterImpl : public CJbCustBlockParameterImpl {
 public:
  struct State {
    OdString name;
    // Entities of the block definition hidden in this state.
    OdArray<OdDbObjectId> definedHidden;
    // The same entities in the block the instance uses.
    OdArray<OdDbObjectId> currentHidden;
    OdArray<int> hiddenElements;
  };

  CJbCustBlockVisibilityParameterImpl();

  // The current hidden entities of every state, taken again from the defined ones as they stand
  // in `blockId` (a block record or a reference to one).
  void RefreshCurrentEntities(const OdDbObjectId& blockId);
  bool HasState(unsigned index) const { return index < m_states.size(); }
  // The index of the state other than `except` whose name matches `name` ignoring case, or -1.
  int FindName(const OdString& name, int except) const;

  unsigned m_blockEditorState = 0;
  unsigned m_currentState = 0;
  unsigned m_updatedState = 0;
  std::vector<State> m_states;
};
