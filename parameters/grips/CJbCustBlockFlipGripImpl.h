// The data of a flip grip: whether it shows the flipped state.
#pragma once

#include "parameters/grips/CJbCustBlockGripImpl.h"

class CJbCustBlockFlipGripImpl : public CJbCustBlockGripImpl {
 public:
  bool m_flipped = false;
};
