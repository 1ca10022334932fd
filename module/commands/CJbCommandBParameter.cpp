#include "module/commands/CJbCommandBParameter.h"

#include "authoring/CJbCustBlockGraphAuthor.h"

void CJbCommandBParameter::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  OdRxClass* kind = AskKind("Element kind:", CJbCustBlockElementUtilsPE::Family::kParameter);
  const CJbCustBlockParameterPtr parameter =
      CJbCustBlockGraphAuthor(graph.get()).AppendParameter(kind);
  Tell("Added " + parameter->GetName() + ".");
}
