#include "module/utilities/CJbCustBlockLookupParameterUtilsPE.h"

#include "parameters/CJbCustBlockLookupParameter.h"

CJbCustBlockLookupParameterUtilsPE::CJbCustBlockLookupParameterUtilsPE()
    : CJbCustBlockParameterUtilsPE(&CJbCustBlockLookupParameter::desc, "Lookup", "LOOKUP",
                                   OdResBuf::kRtInt32, "JbCustBlockLookupGrip") {}
