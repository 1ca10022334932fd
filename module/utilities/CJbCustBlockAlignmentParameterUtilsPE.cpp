#include "module/utilities/CJbCustBlockAlignmentParameterUtilsPE.h"

#include "parameters/CJbCustBlockAlignmentParameter.h"

CJbCustBlockAlignmentParameterUtilsPE::CJbCustBlockAlignmentParameterUtilsPE()
    : CJbCustBlockParameterUtilsPE(&CJbCustBlockAlignmentParameter::desc, "Alignment", "ALIGNMENT",
                                   0, "JbCustBlockAlignmentGrip") {}
