#include "module/utilities/CJbCustBlockBaseGripUtilsPE.h"

#include "parameters/grips/CJbCustBlockBaseGrip.h"

CJbCustBlockBaseGripUtilsPE::CJbCustBlockBaseGripUtilsPE()
    : CJbCustBlockGripUtilsPE(&CJbCustBlockBaseGrip::desc, "Base Grip", "BASE") {}
