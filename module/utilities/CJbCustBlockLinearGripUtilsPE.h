// Editing utilities of linear grips.
#pragma once

#include "module/utilities/CJbCustBlockGripUtilsPE.h"

class CJbCustBlockLinearGripUtilsPE : public CJbCustBlockGripUtilsPE {
 public:
  CJbCustBlockLinearGripUtilsPE();
};
