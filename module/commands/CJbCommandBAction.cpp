#include "module/commands/CJbCommandBAction.h"

#include "parameters/CJbCustBlockParameter.h"

void CJbCommandBAction::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForRead);
  const CJbCustBlockParameterPtr parameter = CJbCustBlockParameter::cast(
      AskElement(graph.get(), "Element name:", CJbCustBlockParameter::desc()).get());
  const OdArray<int> actions = parameter->GetConnectedActions();
  if (actions.isEmpty()) Tell(parameter->GetName() + " drives no activity.");
  for (int id : actions)
    Tell(LabelOf(graph->GetNode(id).get()));
}
