// The data of a point parameter: one point, and a position value set with its X and Y children.
#pragma once

#include "parameters/CJbCustBlockParameterImpl.h"

class CJbCustBlockPointParameterImpl : public CJbCustBlockParameterImpl {
 public:
  CJbCustBlockPointParameterImpl() : CJbCustBlockParameterImpl(1) {
    AddValueInfo(CJbCustBlockParameterValueInfo::kPosition);
    AddValueInfo(CJbCustBlockParameterValueInfo::kXPosition, 0);
    AddValueInfo(CJbCustBlockParameterValueInfo::kYPosition, 0);
  }
};
