#include "module/utilities/CJbCustBlockStretchActionUtilsPE.h"

#include "actions/CJbCustBlockStretchAction.h"

CJbCustBlockStretchActionUtilsPE::CJbCustBlockStretchActionUtilsPE()
    : CJbCustBlockActionUtilsPE(&CJbCustBlockStretchAction::desc, "Stretch", "STRETCH") {}
