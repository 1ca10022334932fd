#include "module/utilities/CJbCustBlockPolarParameterUtilsPE.h"

#include "parameters/CJbCustBlockPolarParameter.h"

CJbCustBlockPolarParameterUtilsPE::CJbCustBlockPolarParameterUtilsPE()
    : CJbCustBlockParameterUtilsPE(&CJbCustBlockPolarParameter::desc, "Polar", "POLAR",
                                   OdResBuf::kRtDouble, "JbCustBlockPolarGrip") {}
