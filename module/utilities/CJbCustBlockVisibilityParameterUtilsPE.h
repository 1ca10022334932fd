// Editing utilities of visibility parameters.
#pragma once

#include "module/utilities/CJbCustBlockParameterUtilsPE.h"

class CJbCustBlockVisibilityParameterUtilsPE : public CJbCustBlockParameterUtilsPE {
 public:
  CJbCustBlockVisibilityParameterUtilsPE();
};
