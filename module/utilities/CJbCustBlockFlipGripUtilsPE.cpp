#include "module/utilities/CJbCustBlockFlipGripUtilsPE.h"

#include "parameters/grips/CJbCustBlockFlipGrip.h"

CJbCustBlockFlipGripUtilsPE::CJbCustBlockFlipGripUtilsPE()
    : CJbCustBlockGripUtilsPE(&CJbCustBlockFlipGrip::desc, "Mirror Grip", "FLIP") {}
