// Editing utilities of scale actions, shown as "Scale".
#pragma once

#include "module/utilities/CJbCustBlockActionUtilsPE.h"

class CJbCustBlockScaleActionUtilsPE : public CJbCustBlockActionUtilsPE {
 public:
  CJbCustBlockScaleActionUtilsPE();
};
