// Editing utilities of evaluation graphs: a graph is made by the storage, not by hand, and its
// parts are its elements, so a host can walk a customizable block without knowing the classes.
#pragma once

#include "module/utilities/CJbCustBlockKindUtilsPE.h"

class CJbDbCustBlockGraphUtilsPE : public CJbCustBlockKindUtilsPE {
 public:
  CJbDbCustBlockGraphUtilsPE();

  Family GetFamily() const override { return Family::kOther; }
  int GetValueType() const override { return 0; }
  OdString GetGripKind() const override { return OdString(); }
  OdArray<OdString> GetPartnerKinds() const override { return {}; }
  OdRxObjectPtr CreateElement() const override { return OdRxObjectPtr(); }
  // "block name: n elements".
  OdString GetLabel(const OdRxObject* object) const override;
  // The graph's elements in id order. The graph must be open for read.
  OdArray<OdRxObjectPtr> GetParts(const OdRxObject* object) const override;
};
