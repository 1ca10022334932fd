// Editing utilities of stretch actions.
#pragma once

#include "module/utilities/CJbCustBlockActionUtilsPE.h"

class CJbCustBlockStretchActionUtilsPE : public CJbCustBlockActionUtilsPE {
 public:
  CJbCustBlockStretchActionUtilsPE();
};
