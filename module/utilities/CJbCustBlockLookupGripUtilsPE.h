// Editing utilities of table grips.
#pragma once

#include "module/utilities/CJbCustBlockGripUtilsPE.h"

class CJbCustBlockLookupGripUtilsPE : public CJbCustBlockGripUtilsPE {
 public:
  CJbCustBlockLookupGripUtilsPE();
};
