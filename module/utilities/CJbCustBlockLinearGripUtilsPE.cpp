#include "module/utilities/CJbCustBlockLinearGripUtilsPE.h"

#include "parameters/grips/CJbCustBlockLinearGrip.h"

CJbCustBlockLinearGripUtilsPE::CJbCustBlockLinearGripUtilsPE()
    : CJbCustBlockGripUtilsPE(&CJbCustBlockLinearGrip::desc, "Linear Grip", "LINEAR") {}
