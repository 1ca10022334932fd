#include "module/utilities/CJbCustBlockPolarStretchActionUtilsPE.h"

#include "actions/CJbCustBlockPolarStretchAction.h"

CJbCustBlockPolarStretchActionUtilsPE::CJbCustBlockPolarStretchActionUtilsPE()
    : CJbCustBlockActionUtilsPE(&CJbCustBlockPolarStretchAction::desc, "Polar Stretch",
                                "POLARSTRETCH") {}
