#include "module/utilities/CJbCustBlockAlignmentGripUtilsPE.h"

#include "parameters/grips/CJbCustBlockAlignmentGrip.h"

CJbCustBlockAlignmentGripUtilsPE::CJbCustBlockAlignmentGripUtilsPE()
    : CJbCustBlockGripUtilsPE(&CJbCustBlockAlignmentGrip::desc, "Alignment Grip", "ALIGNMENT") {}
