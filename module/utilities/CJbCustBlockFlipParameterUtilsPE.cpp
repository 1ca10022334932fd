#include "module/utilities/CJbCustBlockFlipParameterUtilsPE.h"

#include "parameters/CJbCustBlockFlipParameter.h"

CJbCustBlockFlipParameterUtilsPE::CJbCustBlockFlipParameterUtilsPE()
    : CJbCustBlockParameterUtilsPE(&CJbCustBlockFlipParameter::desc, "Flip", "FLIP",
                                   OdResBuf::kRtInt32, "JbCustBlockFlipGrip") {}
