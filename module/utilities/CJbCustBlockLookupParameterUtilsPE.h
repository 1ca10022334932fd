// Editing utilities of lookup parameters.
#pragma once

#include "module/utilities/CJbCustBlockParameterUtilsPE.h"

class CJbCustBlockLookupParameterUtilsPE : public CJbCustBlockParameterUtilsPE {
 public:
  CJbCustBlockLookupParameterUtilsPE();
};
