#include "module/utilities/CJbCustBlockPolarGripUtilsPE.h"

#include "parameters/grips/CJbCustBlockPolarGrip.h"

CJbCustBlockPolarGripUtilsPE::CJbCustBlockPolarGripUtilsPE()
    : CJbCustBlockGripUtilsPE(&CJbCustBlockPolarGrip::desc, "Polar Grip", "POLAR") {}
