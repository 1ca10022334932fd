// Editing utilities of mirror grips.
#pragma once

#include "module/utilities/CJbCustBlockGripUtilsPE.h"

class CJbCustBlockFlipGripUtilsPE : public CJbCustBlockGripUtilsPE {
 public:
  CJbCustBlockFlipGripUtilsPE();
};
