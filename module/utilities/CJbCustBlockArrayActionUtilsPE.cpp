#include "module/utilities/CJbCustBlockArrayActionUtilsPE.h"

#include "actions/CJbCustBlockArrayAction.h"

CJbCustBlockArrayActionUtilsPE::CJbCustBlockArrayActionUtilsPE()
    : CJbCustBlockActionUtilsPE(&CJbCustBlockArrayAction::desc, "Pattern", "ARRAY") {}
