#include "module/utilities/CJbCustBlockLookupGripUtilsPE.h"

#include "parameters/grips/CJbCustBlockLookupGrip.h"

CJbCustBlockLookupGripUtilsPE::CJbCustBlockLookupGripUtilsPE()
    : CJbCustBlockGripUtilsPE(&CJbCustBlockLookupGrip::desc, "Table Grip", "LOOKUP") {}
