// Editing utilities of base grips.
#pragma once

#include "module/utilities/CJbCustBlockGripUtilsPE.h"

class CJbCustBlockBaseGripUtilsPE : public CJbCustBlockGripUtilsPE {
 public:
  CJbCustBlockBaseGripUtilsPE();
};
