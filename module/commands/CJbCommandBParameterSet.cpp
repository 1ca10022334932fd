#include "module/commands/CJbCommandBParameterSet.h"

#include "authoring/CJbCustBlockGraphAuthor.h"

void CJbCommandBParameterSet::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  OdRxClass* parameterKind =
      AskKind("Element kind:", CJbCustBlockElementUtilsPE::Family::kParameter);
  OdRxClass* actionKind = AskKind("Activity kind:", CJbCustBlockElementUtilsPE::Family::kAction);
  CJbCustBlockGraphAuthor author(graph.get());
  const CJbCustBlockParameterPtr parameter = author.AppendParameter(parameterKind);
  const CJbCustBlockActionPtr action = author.AppendAction(actionKind, parameter.get());
  Tell("Added " + parameter->GetName() + " with " + action->GetName() + ".");
}
