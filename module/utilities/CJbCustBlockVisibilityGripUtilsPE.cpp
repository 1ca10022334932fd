#include "module/utilities/CJbCustBlockVisibilityGripUtilsPE.h"

#include "parameters/grips/CJbCustBlockVisibilityGrip.h"

CJbCustBlockVisibilityGripUtilsPE::CJbCustBlockVisibilityGripUtilsPE()
    : CJbCustBlockGripUtilsPE(&CJbCustBlockVisibilityGrip::desc, "Visibility Grip", "VISIBILITY") {}
