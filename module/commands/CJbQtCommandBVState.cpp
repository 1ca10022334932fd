#include "module/commands/CJbQtCommandBVState.h"

void CJbQtCommandBVState::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  const CJbCustBlockVisibilityParameterPtr parameter = VisibilityParameterOf(graph.get());
  const unsigned count = parameter->GetStateCount();
  for (unsigned state = 0; state < count; ++state) {
    Tell(
        OdString::format("%u: %s hides %u entities and %u elements", state + 1,
                         parameter->GetStateName(state).c_str(),
                         static_cast<unsigned>(parameter->GetDefinedHiddenEntities(state).length()),
                         static_cast<unsigned>(parameter->GetHiddenElementIds(state).length())));
  }
  unsigned from = 0, to = 0;
  if (AskMove("Move (from,to; empty keeps the order):", count, from, to))
    parameter->ChangeStatePosition(from, to);
}
