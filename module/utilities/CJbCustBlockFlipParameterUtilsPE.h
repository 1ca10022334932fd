// Editing utilities of flip parameters.
#pragma once

#include "module/utilities/CJbCustBlockParameterUtilsPE.h"

class CJbCustBlockFlipParameterUtilsPE : public CJbCustBlockParameterUtilsPE {
 public:
  CJbCustBlockFlipParameterUtilsPE();
};
