// The grip-points protocol extension.
#include "platform/db/OdDbGripPointsPE.h"

#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbGripPointsPE, OdRxObject)
