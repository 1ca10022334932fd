#include "module/utilities/CJbCustBlockPointParameterUtilsPE.h"

#include "parameters/CJbCustBlockPointParameter.h"

CJbCustBlockPointParameterUtilsPE::CJbCustBlockPointParameterUtilsPE()
    : CJbCustBlockParameterUtilsPE(&CJbCustBlockPointParameter::desc, "Point", "POINT",
                                   OdResBuf::kRtPoint3d, "JbCustBlockBaseGrip") {}
