// Editing utilities of proxy elements: elements whose class is not available are shown by the
// class they stand for and are never made by hand.
#pragma once

#include "module/utilities/CJbCustBlockOtherKindUtilsPE.h"

class CJbCustBlockProxyElementUtilsPE : public CJbCustBlockOtherKindUtilsPE {
 public:
  CJbCustBlockProxyElementUtilsPE();
  // "name (original class)".
  OdString GetLabel(const OdRxObject* object) const override;
};
