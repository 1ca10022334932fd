// Editing utilities of kinds that are neither parameters, actions nor grips and that no editor
// makes by hand: they have no value, grip or partners of their own.
#pragma once

#include "module/utilities/CJbCustBlockKindUtilsPE.h"

class CJbCustBlockOtherKindUtilsPE : public CJbCustBlockKindUtilsPE {
 public:
  Family GetFamily() const override { return Family::kOther; }
  int GetValueType() const override { return 0; }
  OdString GetGripKind() const override { return OdString(); }
  OdArray<OdString> GetPartnerKinds() const override { return {}; }
  OdRxObjectPtr CreateElement() const override { return OdRxObjectPtr(); }

 protected:
  using CJbCustBlockKindUtilsPE::CJbCustBlockKindUtilsPE;
};
