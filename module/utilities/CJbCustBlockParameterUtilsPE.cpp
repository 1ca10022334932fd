#include "module/utilities/CJbCustBlockParameterUtilsPE.h"

#include "actions/CJbCustBlockAction.h"
#include "authoring/CJbCustBlockValueText.h"
#include "parameters/CJbCustBlockParameter.h"
#include "platform/rx/OdRxClassDictionary.h"

CJbCustBlockParameterUtilsPE::CJbCustBlockParameterUtilsPE(const CJbCustBlockKindRow& row)
    : CJbCustBlockKindUtilsPE(row.cls.desc, row.displayName, row.keyword),
      m_valueType(row.valueType),
      m_gripKind(row.gripKind) {}

OdString CJbCustBlockParameterUtilsPE::GetGripKind() const {
  const OdRxClass* grip = m_gripKind ? m_gripKind() : nullptr;
  return grip ? grip->name() : OdString();
}

OdArray<OdString> CJbCustBlockParameterUtilsPE::GetPartnerKinds() const {
  // The actions say which parameters they take; asking them keeps one source of truth.
  OdArray<OdString> actions;
  const OdRxClass* kind = GetKindClass();
  if (!kind) return actions;
  for (OdRxClass* cls : OdRxClassDictionary::instance().classes()) {
    if (!cls->isDerivedFrom(CJbCustBlockAction::desc())) continue;
    const OdSmartPtr<CJbCustBlockAction> action = CJbCustBlockAction::cast(NewObjectOf(cls).get());
    if (action.isNull()) continue;
    for (const OdRxClass* accepted : action->GetAcceptableParameters()) {
      if (kind->isDerivedFrom(accepted)) {
        actions.append(cls->name());
        break;
      }
    }
  }
  return actions;
}

OdString CJbCustBlockParameterUtilsPE::GetLabel(const OdRxObject* object) const {
  const OdString name = NameOf(object);
  const CJbCustBlockParameterPtr parameter = CJbCustBlockParameter::cast(object);
  if (parameter.isNull() || m_valueType == 0) return name;
  const OdResBufPtr value = parameter->GetValue(0);
  return value.isNull() ? name : name + " = " + CJbCustBlockValueText::Format(value.get());
}
