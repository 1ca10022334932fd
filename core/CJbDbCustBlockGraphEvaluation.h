// How a graph evaluates: which elements need it and what follows from them, the order in which
// the elements of a block definition run, and the three passes (begin, evaluate, end) over them.
#pragma once

#include "core/CJbDbCustBlockGraphImpl.h"

class CJbDbCustBlockGraphEvaluationContext;

class CJbDbCustBlockGraphEvaluation {
 public:
  explicit CJbDbCustBlockGraphEvaluation(const CJbDbCustBlockGraphImpl& graph);

  // Evaluates the elements that need it and everything downstream, for one block reference.
  void ForReference(const OdDbObjectId& blockRefId, bool modifyBlockReferences) const;
  // After a redefinition: the changed elements and their dependents first (parameters only
  // prepare and finish), then every element.
  void ForDefinition(const OdDbObjectId& blockDefId, bool ignoreBlockEntities) const;

  // Elements that asked to be evaluated, in ascending id order, followed by everything
  // downstream of them, breadth first.
  OdArray<int> BuildWorkList() const;
  // `ids` ordered upstream first, then stably by priority, higher first.
  OdArray<int> OrderForDefinition(const OdArray<int>& ids) const;

 private:
  void RunPasses(const OdArray<int>& ids, CJbDbCustBlockGraphEvaluationContext* context,
                 bool evaluateParameters) const;

  const CJbDbCustBlockGraphImpl& m_graph;
  const CJbDbCustBlockGraphImpl::NodeMap& m_nodes;
};
