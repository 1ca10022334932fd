// Editing utilities of rotation parameters.
#pragma once

#include "module/utilities/CJbCustBlockParameterUtilsPE.h"

class CJbCustBlockRotationParameterUtilsPE : public CJbCustBlockParameterUtilsPE {
 public:
  CJbCustBlockRotationParameterUtilsPE();
};
