#include "module/utilities/CJbCustBlockScaleActionUtilsPE.h"

#include "actions/CJbCustBlockScaleAction.h"

CJbCustBlockScaleActionUtilsPE::CJbCustBlockScaleActionUtilsPE()
    : CJbCustBlockActionUtilsPE(&CJbCustBlockScaleAction::desc, "Scale", "SCALE") {}
