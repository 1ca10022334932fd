#include "module/commands/CJbCommandBActionTool.h"

#include "authoring/CJbCustBlockGraphAuthor.h"

void CJbCommandBActionTool::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  OdRxClass* kind = AskKind("Activity kind:", CJbCustBlockElementUtilsPE::Family::kAction);
  const CJbCustBlockParameterPtr parameter = CJbCustBlockParameter::cast(
      AskElement(graph.get(), "Element name:", CJbCustBlockParameter::desc()).get());
  const CJbCustBlockActionPtr action =
      CJbCustBlockGraphAuthor(graph.get()).AppendAction(kind, parameter.get());
  Tell("Added " + action->GetName() + " to " + parameter->GetName() + ".");
}
