#include "module/utilities/CJbCustBlockLookupActionUtilsPE.h"

#include "actions/CJbCustBlockLookupAction.h"

CJbCustBlockLookupActionUtilsPE::CJbCustBlockLookupActionUtilsPE()
    : CJbCustBlockActionUtilsPE(&CJbCustBlockLookupAction::desc, "Table", "LOOKUP") {}
