#include "module/commands/CJbCommandBActionTool.h"

#include "module/commands/CJbCustBlockGraphEditing.h"
#include "parameters/CJbCustBlockParameter.h"

void CJbCommandBActionTool::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  OdRxClass* kind = AskKind("Activity kind:", CJbCustBlockElementUtilsPE::Family::kAction);
  const CJbCustBlockElementPtr parameter =
      AskElement(graph.get(), "Element name:", CJbCustBlockParameter::desc());
  const CJbCustBlockElementPtr action =
      CJbCustBlockGraphEditing::AppendAction(graph.get(), kind, parameter.get());
  Tell("Added " + action->GetName() + " to " + parameter->GetName() + ".");
}
