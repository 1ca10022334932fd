// Editing utilities of point parameters.
#pragma once

#include "module/utilities/CJbCustBlockParameterUtilsPE.h"

class CJbCustBlockPointParameterUtilsPE : public CJbCustBlockParameterUtilsPE {
 public:
  CJbCustBlockPointParameterUtilsPE();
};
