#include "module/utilities/CJbCustBlockVisibilityParameterUtilsPE.h"

#include "parameters/CJbCustBlockVisibilityParameter.h"

CJbCustBlockVisibilityParameterUtilsPE::CJbCustBlockVisibilityParameterUtilsPE()
    : CJbCustBlockParameterUtilsPE(&CJbCustBlockVisibilityParameter::desc, "Visibility",
                                   "VISIBILITY", OdResBuf::kRtInt32, "JbCustBlockVisibilityGrip") {}
