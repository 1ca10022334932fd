// Editing utilities of evaluation graphs: a graph is made by the storage, not by hand, and its
// parts are its elements, so a host can walk a customizable block without knowing the classes.
#pragma once

#include "module/utilities/CJbCustBlockOtherKindUtilsPE.h"

class CJbDbCustBlockGraphUtilsPE : public CJbCustBlockOtherKindUtilsPE {
 public:
  CJbDbCustBlockGraphUtilsPE();
  // "block name: n elements".
  OdString GetLabel(const OdRxObject* object) const override;
  // The graph's elements in id order. The graph must be open for read.
  OdArray<OdRxObjectPtr> GetParts(const OdRxObject* object) const override;
};
