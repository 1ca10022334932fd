// Editing utilities of visibility grips.
#pragma once

#include "module/utilities/CJbCustBlockGripUtilsPE.h"

class CJbCustBlockVisibilityGripUtilsPE : public CJbCustBlockGripUtilsPE {
 public:
  CJbCustBlockVisibilityGripUtilsPE();
};
