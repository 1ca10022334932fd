// Editing utilities of base point parameters.
#pragma once

#include "module/utilities/CJbCustBlockParameterUtilsPE.h"

class CJbCustBlockBasePointParameterUtilsPE : public CJbCustBlockParameterUtilsPE {
 public:
  CJbCustBlockBasePointParameterUtilsPE();
};
