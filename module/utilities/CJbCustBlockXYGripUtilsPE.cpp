#include "module/utilities/CJbCustBlockXYGripUtilsPE.h"

#include "parameters/grips/CJbCustBlockXYGrip.h"

CJbCustBlockXYGripUtilsPE::CJbCustBlockXYGripUtilsPE()
    : CJbCustBlockGripUtilsPE(&CJbCustBlockXYGrip::desc, "XY Grip", "XY") {}
