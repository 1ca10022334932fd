// Editing utilities of alignment grips.
#pragma once

#include "module/utilities/CJbCustBlockGripUtilsPE.h"

class CJbCustBlockAlignmentGripUtilsPE : public CJbCustBlockGripUtilsPE {
 public:
  CJbCustBlockAlignmentGripUtilsPE();
};
