#include "module/commands/CJbCommandBActionBarDelete.h"

#include "actions/CJbCustBlockAction.h"

void CJbCommandBActionBarDelete::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  const CJbCustBlockElementPtr action =
      AskElement(graph.get(), "Activity name:", CJbCustBlockAction::desc());
  graph->RemoveNode(action->GetElementId());
  Tell("Removed " + action->GetName() + ".");
}
