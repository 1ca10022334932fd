// Editing utilities of polar grips.
#pragma once

#include "module/utilities/CJbCustBlockGripUtilsPE.h"

class CJbCustBlockPolarGripUtilsPE : public CJbCustBlockGripUtilsPE {
 public:
  CJbCustBlockPolarGripUtilsPE();
};
