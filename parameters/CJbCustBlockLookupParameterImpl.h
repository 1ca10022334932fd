// The data of a lookup parameter: the table's columns (a parameter and the index of one of its
// values), its rows with a name and one cell per column, the name shown when no row matches, and
// the row requested for the evaluation in progress.
#pragma once

#include <vector>

#include "parameters/CJbCustBlockParameterImpl.h"
#include "platform/resbuf/OdResBuf.h"

class CJbCustBlockLookupParameterImpl : public CJbCustBlockParameterImpl {
 public:
  struct Column {
    int id = 0;
    unsigned valueIndex = 0;
  };
  struct State {
    OdString name;
    // One per column; an empty pointer is a cell without a value, which matches nothing.
    std::vector<OdResBufPtr> cells;
  };

  // One point: where the table's grip stands. None needs to be picked to define the table.
  CJbCustBlockLookupParameterImpl() : CJbCustBlockParameterImpl(1) {
    AddValueInfo(CJbCustBlockParameterValueInfo::kTable);
  }

  std::vector<Column> m_columns;
  std::vector<State> m_states;
  OdString m_unmatchedStateName;
  bool m_readOnly = false;
  bool m_updatePending = false;
  int m_requestedState = -1;
  // Set while the table is matched, so that tables naming each other cannot recurse.
  mutable bool m_matching = false;
};
