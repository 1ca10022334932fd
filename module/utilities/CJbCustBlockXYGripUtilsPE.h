// Editing utilities of XY grips.
#pragma once

#include "module/utilities/CJbCustBlockGripUtilsPE.h"

class CJbCustBlockXYGripUtilsPE : public CJbCustBlockGripUtilsPE {
 public:
  CJbCustBlockXYGripUtilsPE();
};
