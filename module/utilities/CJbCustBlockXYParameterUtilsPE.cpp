#include "module/utilities/CJbCustBlockXYParameterUtilsPE.h"

#include "parameters/CJbCustBlockXYParameter.h"

CJbCustBlockXYParameterUtilsPE::CJbCustBlockXYParameterUtilsPE()
    : CJbCustBlockParameterUtilsPE(&CJbCustBlockXYParameter::desc, "XY", "XY", OdResBuf::kRtDouble,
                                   "JbCustBlockXYGrip") {}
