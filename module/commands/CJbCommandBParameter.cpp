#include "module/commands/CJbCommandBParameter.h"

#include "module/commands/CJbCustBlockGraphEditing.h"

void CJbCommandBParameter::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  OdRxClass* kind = AskKind("Element kind:", CJbCustBlockElementUtilsPE::Family::kParameter);
  const CJbCustBlockElementPtr parameter =
      CJbCustBlockGraphEditing::AppendParameter(graph.get(), kind);
  Tell("Added " + parameter->GetName() + ".");
}
