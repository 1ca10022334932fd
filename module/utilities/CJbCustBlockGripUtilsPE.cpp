#include "module/utilities/CJbCustBlockGripUtilsPE.h"

#include "authoring/CJbCustBlockValueText.h"
#include "parameters/CJbCustBlockParameter.h"
#include "parameters/grips/CJbCustBlockGrip.h"
#include "platform/rx/OdRxClassDictionary.h"

CJbCustBlockGripUtilsPE::CJbCustBlockGripUtilsPE(const CJbCustBlockKindRow& row)
    : CJbCustBlockKindUtilsPE(row.cls.desc, row.displayName, row.keyword) {}

int CJbCustBlockGripUtilsPE::GetValueType() const {
  return OdResBuf::kRtPoint3d;
}

OdArray<OdString> CJbCustBlockGripUtilsPE::GetPartnerKinds() const {
  // The parameters' own utilities say which grip they use.
  OdArray<OdString> parameters;
  const OdRxClass* kind = GetKindClass();
  if (!kind) return parameters;
  for (OdRxClass* cls : OdRxClassDictionary::instance().classes()) {
    if (!cls->isDerivedFrom(CJbCustBlockParameter::desc())) continue;
    const CJbCustBlockElementUtilsPEPtr utils =
        CJbCustBlockElementUtilsPE::cast(cls->getX(CJbCustBlockElementUtilsPE::desc()).get());
    if (!utils.isNull() && utils->GetGripKind() == kind->name()) parameters.append(cls->name());
  }
  return parameters;
}

OdString CJbCustBlockGripUtilsPE::GetLabel(const OdRxObject* object) const {
  const OdString name = NameOf(object);
  const CJbCustBlockGripPtr grip = CJbCustBlockGrip::cast(object);
  if (grip.isNull()) return name;
  const OdResBufPtr position = OdResBuf::newRb(OdResBuf::kRtPoint3d, grip->GetDisplayPosition());
  return name + " @ " + CJbCustBlockValueText::Format(position.get());
}
