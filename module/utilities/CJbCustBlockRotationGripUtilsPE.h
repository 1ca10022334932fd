// Editing utilities of rotation grips.
#pragma once

#include "module/utilities/CJbCustBlockGripUtilsPE.h"

class CJbCustBlockRotationGripUtilsPE : public CJbCustBlockGripUtilsPE {
 public:
  CJbCustBlockRotationGripUtilsPE();
};
