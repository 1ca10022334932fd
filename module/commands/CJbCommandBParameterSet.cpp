#include "module/commands/CJbCommandBParameterSet.h"

#include "module/commands/CJbCustBlockGraphEditing.h"

void CJbCommandBParameterSet::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  OdRxClass* parameterKind =
      AskKind("Element kind:", CJbCustBlockElementUtilsPE::Family::kParameter);
  OdRxClass* actionKind = AskKind("Activity kind:", CJbCustBlockElementUtilsPE::Family::kAction);
  const CJbCustBlockElementPtr parameter =
      CJbCustBlockGraphEditing::AppendParameter(graph.get(), parameterKind);
  const CJbCustBlockElementPtr action =
      CJbCustBlockGraphEditing::AppendAction(graph.get(), actionKind, parameter.get());
  Tell("Added " + parameter->GetName() + " with " + action->GetName() + ".");
}
