#include "module/commands/CJbCommandBActionBar.h"

#include <cstdio>

#include "parameters/CJbCustBlockParameter.h"

void CJbCommandBActionBar::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  const CJbCustBlockParameterPtr parameter = CJbCustBlockParameter::cast(
      AskElement(graph.get(), "Element name:", CJbCustBlockParameter::desc()).get());
  const OdGePoint3d at = parameter->GetActivityIconPosition();
  Tell(OdString::format("Activity bar of %s at %g, %g, %g.", parameter->GetName().c_str(), at.x,
                        at.y, at.z));
  const OdString answer = Ask("New position (x,y[,z]; empty keeps it):");
  if (answer.isEmpty()) return;
  OdGePoint3d moved;
  if (std::sscanf(answer.c_str(), "%lf,%lf,%lf", &moved.x, &moved.y, &moved.z) < 2)
    throw OdError(eInvalidInput, "\"" + answer.str() + "\" is no position; type x,y or x,y,z");
  parameter->SetActivityIconPosition(moved);
}
