// Editing utilities of lookup actions, shown as "Table".
#pragma once

#include "module/utilities/CJbCustBlockActionUtilsPE.h"

class CJbCustBlockLookupActionUtilsPE : public CJbCustBlockActionUtilsPE {
 public:
  CJbCustBlockLookupActionUtilsPE();
};
