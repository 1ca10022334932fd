// Editing utilities of array actions, shown as "Pattern".
#pragma once

#include "module/utilities/CJbCustBlockActionUtilsPE.h"

class CJbCustBlockArrayActionUtilsPE : public CJbCustBlockActionUtilsPE {
 public:
  CJbCustBlockArrayActionUtilsPE();
};
