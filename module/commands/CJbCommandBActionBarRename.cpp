#include "module/commands/CJbCommandBActionBarRename.h"

#include "actions/CJbCustBlockAction.h"

void CJbCommandBActionBarRename::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  const CJbCustBlockElementPtr action =
      AskElement(graph.get(), "Activity name:", CJbCustBlockAction::desc());
  const OdString name = AskRequired("New name:");
  if (!CJbCustBlockElement::ValidateName(name, graph.get(), action.get()))
    throw OdError(eDuplicateKey, "the block already has an element named \"" + name.str() + "\"");
  action->SetName(name);
}
