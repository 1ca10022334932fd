// Editing utilities of linear parameters.
#pragma once

#include "module/utilities/CJbCustBlockParameterUtilsPE.h"

class CJbCustBlockLinearParameterUtilsPE : public CJbCustBlockParameterUtilsPE {
 public:
  CJbCustBlockLinearParameterUtilsPE();
};
