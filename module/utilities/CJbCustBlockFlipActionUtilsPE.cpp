#include "module/utilities/CJbCustBlockFlipActionUtilsPE.h"

#include "actions/CJbCustBlockFlipAction.h"

CJbCustBlockFlipActionUtilsPE::CJbCustBlockFlipActionUtilsPE()
    : CJbCustBlockActionUtilsPE(&CJbCustBlockFlipAction::desc, "Mirror", "FLIP") {}
