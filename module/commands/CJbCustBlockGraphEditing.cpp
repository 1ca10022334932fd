#include "module/commands/CJbCustBlockGraphEditing.h"

#include "actions/CJbCustBlockAction.h"
#include "parameters/CJbCustBlockParameter.h"
#include "platform/host/CJbCustBlockElementUtilsPE.h"
#include "platform/rx/OdRxClassDictionary.h"

namespace {
CJbCustBlockElementPtr append(CJbDbCustBlockGraph* graph, const OdRxClass* kind) {
  const CJbCustBlockElementPtr element = CJbCustBlockElement::cast(kind->create().get());
  if (element.isNull()) throw OdError(eNotApplicable, kind->name().str() + " is no element kind");
  graph->AppendNode(element);
  return element;
}
}  // namespace

CJbCustBlockElementPtr CJbCustBlockGraphEditing::AppendParameter(CJbDbCustBlockGraph* graph,
                                                                 const OdRxClass* kind) {
  const CJbCustBlockElementPtr element = append(graph, kind);
  const CJbCustBlockParameterPtr parameter = CJbCustBlockParameter::cast(element.get());
  const CJbCustBlockElementUtilsPEPtr utilities =
      CJbCustBlockElementUtilsPE::cast(kind->getX(CJbCustBlockElementUtilsPE::desc()).get());
  OdRxClass* gripKind = utilities.isNull()
                            ? nullptr
                            : OdRxClassDictionary::instance().getAt(utilities->GetGripKind());
  if (parameter.isNull() || !gripKind) return element;
  for (unsigned index = 0; index < parameter->GetPointCount(); ++index) {
    const CJbCustBlockElementPtr grip = append(graph, gripKind);
    grip->AddConnection(parameter->GetElementId(), false, true);
    parameter->SetGrip(index, grip->GetElementId());
  }
  return element;
}

CJbCustBlockElementPtr CJbCustBlockGraphEditing::AppendAction(
    CJbDbCustBlockGraph* graph, const OdRxClass* kind, const CJbCustBlockElement* parameter) {
  const OdSmartPtr<CJbCustBlockAction> sample = CJbCustBlockAction::cast(kind->create().get());
  if (sample.isNull()) throw OdError(eNotApplicable, kind->name().str() + " is no action kind");
  bool accepted = false;
  for (const OdRxClass* cls : sample->GetAcceptableParameters())
    accepted = accepted || parameter->isKindOf(cls);
  if (!accepted)
    throw OdError(eInvalidInput, kind->name().str() + " cannot be driven by " +
                                     parameter->isA()->name().str() + " \"" +
                                     parameter->GetName().str() + "\"");
  graph->AppendNode(sample);
  sample->SetParameter(parameter->GetElementId());
  return sample;
}
