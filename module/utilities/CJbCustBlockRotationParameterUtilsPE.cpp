#include "module/utilities/CJbCustBlockRotationParameterUtilsPE.h"

#include "parameters/CJbCustBlockRotationParameter.h"

CJbCustBlockRotationParameterUtilsPE::CJbCustBlockRotationParameterUtilsPE()
    : CJbCustBlockParameterUtilsPE(&CJbCustBlockRotationParameter::desc, "Rotation", "ROTATION",
                                   OdResBuf::kRtAngle, "JbCustBlockRotationGrip") {}
