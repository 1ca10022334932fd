// The data of grips that request a state of a list-like parameter.
#include "parameters/grips/CJbCustBlockStateGripImpl.h"

#include "core/CJbDbCustBlockGraph.h"
#include "parameters/CJbCustBlockStateParameter.h"
#include "parameters/grips/CJbCustBlockGrip.h"

int CJbCustBlockStateGripImpl::State(const CJbCustBlockGrip& grip) const {
  if (m_stateRequested) return m_requestedState;
  const int parameterId = grip.GetParameter(nullptr);
  if (CJbCustBlockElement::IsNullId(parameterId)) return 0;
  const CJbCustBlockElementPtr parameter = m_graph->GetNode(parameterId);
  const auto* stateful = dynamic_cast<const CJbCustBlockStateParameter*>(parameter.get());
  return stateful ? stateful->GetUpdatedState() : 0;
}
