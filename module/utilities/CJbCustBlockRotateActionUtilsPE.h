// Editing utilities of rotate actions, shown as "Rotate".
#pragma once

#include "module/utilities/CJbCustBlockActionUtilsPE.h"

class CJbCustBlockRotateActionUtilsPE : public CJbCustBlockActionUtilsPE {
 public:
  CJbCustBlockRotateActionUtilsPE();
};
