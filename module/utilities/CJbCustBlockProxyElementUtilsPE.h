// Editing utilities of proxy elements: elements whose class is not available are shown by the
// class they stand for and are never made by hand.
#pragma once

#include "module/utilities/CJbCustBlockKindUtilsPE.h"

class CJbCustBlockProxyElementUtilsPE : public CJbCustBlockKindUtilsPE {
 public:
  CJbCustBlockProxyElementUtilsPE();

  Family GetFamily() const override { return Family::kOther; }
  int GetValueType() const override { return 0; }
  OdString GetGripKind() const override { return OdString(); }
  OdArray<OdString> GetPartnerKinds() const override { return {}; }
  OdRxObjectPtr CreateElement() const override { return OdRxObjectPtr(); }
  // "name (original class)".
  OdString GetLabel(const OdRxObject* object) const override;
};
