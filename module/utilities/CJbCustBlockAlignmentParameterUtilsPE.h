// Editing utilities of alignment parameters.
#pragma once

#include "module/utilities/CJbCustBlockParameterUtilsPE.h"

class CJbCustBlockAlignmentParameterUtilsPE : public CJbCustBlockParameterUtilsPE {
 public:
  CJbCustBlockAlignmentParameterUtilsPE();
};
