#include "module/utilities/CJbCustBlockActionUtilsPE.h"

#include "actions/CJbCustBlockAction.h"
#include "core/CJbDbCustBlockGraph.h"
#include "parameters/CJbCustBlockParameter.h"
#include "platform/rx/OdRxClassDictionary.h"

CJbCustBlockActionUtilsPE::CJbCustBlockActionUtilsPE(const CJbCustBlockKindRow& row)
    : CJbCustBlockKindUtilsPE(row.cls.desc, row.displayName, row.keyword) {}

OdArray<OdString> CJbCustBlockActionUtilsPE::GetPartnerKinds() const {
  OdArray<OdString> parameters;
  const OdSmartPtr<CJbCustBlockAction> sample = CJbCustBlockAction::cast(CreateElement().get());
  if (sample.isNull()) return parameters;
  const OdArray<OdRxClass*> accepted = sample->GetAcceptableParameters();
  for (OdRxClass* cls : OdRxClassDictionary::instance().classes()) {
    if (!cls->isDerivedFrom(CJbCustBlockParameter::desc()) || NewObjectOf(cls).isNull()) continue;
    for (const OdRxClass* base : accepted) {
      if (cls->isDerivedFrom(base)) {
        parameters.append(cls->name());
        break;
      }
    }
  }
  return parameters;
}

OdString CJbCustBlockActionUtilsPE::GetLabel(const OdRxObject* object) const {
  const OdString name = NameOf(object);
  const OdSmartPtr<CJbCustBlockAction> action = CJbCustBlockAction::cast(object);
  if (action.isNull() || CJbCustBlockElement::IsNullId(action->GetParameter())) return name;
  const CJbDbCustBlockGraphPtr graph = action->GetBlockGraph(OdDb::kForRead);
  const CJbCustBlockElementPtr parameter =
      graph.isNull() ? CJbCustBlockElementPtr() : graph->GetNode(action->GetParameter());
  return name + " <- " +
         (parameter.isNull() ? OdString::format("#%d", action->GetParameter())
                             : parameter->GetName());
}
