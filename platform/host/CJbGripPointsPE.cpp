#include "platform/host/CJbGripPointsPE.h"

#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(CJbGripPointsPE, OdRxObject)
