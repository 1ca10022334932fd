#include "module/utilities/CJbCustBlockLinearParameterUtilsPE.h"

#include "parameters/CJbCustBlockLinearParameter.h"

CJbCustBlockLinearParameterUtilsPE::CJbCustBlockLinearParameterUtilsPE()
    : CJbCustBlockParameterUtilsPE(&CJbCustBlockLinearParameter::desc, "Linear", "LINEAR",
                                   OdResBuf::kRtDouble, "JbCustBlockLinearGrip") {}
