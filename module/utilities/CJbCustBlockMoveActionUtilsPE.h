// Editing utilities of move actions.
#pragma once

#include "module/utilities/CJbCustBlockActionUtilsPE.h"

class CJbCustBlockMoveActionUtilsPE : public CJbCustBlockActionUtilsPE {
 public:
  CJbCustBlockMoveActionUtilsPE();
};
