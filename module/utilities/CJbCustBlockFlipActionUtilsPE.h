// Editing utilities of flip actions, shown as "Mirror".
#pragma once

#include "module/utilities/CJbCustBlockActionUtilsPE.h"

class CJbCustBlockFlipActionUtilsPE : public CJbCustBlockActionUtilsPE {
 public:
  CJbCustBlockFlipActionUtilsPE();
};
