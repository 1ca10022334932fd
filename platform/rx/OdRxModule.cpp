#include "platform/rx/OdRxModule.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdRxModule, OdRxObject)
