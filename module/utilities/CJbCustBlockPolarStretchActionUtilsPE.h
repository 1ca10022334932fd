// Editing utilities of polar stretch actions.
#pragma once

#include "module/utilities/CJbCustBlockActionUtilsPE.h"

class CJbCustBlockPolarStretchActionUtilsPE : public CJbCustBlockActionUtilsPE {
 public:
  CJbCustBlockPolarStretchActionUtilsPE();
};
