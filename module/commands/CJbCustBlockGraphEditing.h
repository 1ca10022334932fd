// Edits of a graph that the editor commands share: new parameters come with a grip on each point,
// new actions are bound to the parameter that drives them.
#pragma once

#include "core/CJbDbCustBlockGraph.h"

class CJbCustBlockGraphEditing {
 public:
  // Appends a parameter of `kind` and one grip of its utilities' grip kind per point, each bound
  // to its point and feeding the parameter. Returns the parameter.
  static CJbCustBlockElementPtr AppendParameter(CJbDbCustBlockGraph* graph, const OdRxClass* kind);
  // Appends an action of `kind` driven by `parameter`; eInvalidInput when the action does not
  // accept that parameter. Returns the action.
  static CJbCustBlockElementPtr AppendAction(CJbDbCustBlockGraph* graph, const OdRxClass* kind,
                                             const CJbCustBlockElement* parameter);
};
