// Editing utilities of polar parameters.
#pragma once

#include "module/utilities/CJbCustBlockParameterUtilsPE.h"

class CJbCustBlockPolarParameterUtilsPE : public CJbCustBlockParameterUtilsPE {
 public:
  CJbCustBlockPolarParameterUtilsPE();
};
