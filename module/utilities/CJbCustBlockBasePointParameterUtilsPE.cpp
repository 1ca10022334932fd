#include "module/utilities/CJbCustBlockBasePointParameterUtilsPE.h"

#include "parameters/CJbCustBlockBasePointParameter.h"

CJbCustBlockBasePointParameterUtilsPE::CJbCustBlockBasePointParameterUtilsPE()
    : CJbCustBlockParameterUtilsPE(&CJbCustBlockBasePointParameter::desc, "Base Point", "BASEPOINT",
                                   0, "JbCustBlockBaseGrip") {}
