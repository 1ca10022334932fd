// Editing utilities of XY parameters.
#pragma once

#include "module/utilities/CJbCustBlockParameterUtilsPE.h"

class CJbCustBlockXYParameterUtilsPE : public CJbCustBlockParameterUtilsPE {
 public:
  CJbCustBlockXYParameterUtilsPE();
};
