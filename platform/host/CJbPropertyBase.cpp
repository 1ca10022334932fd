#include "platform/host/CJbPropertyBase.h"

#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(CJbPropertyBase, OdRxObject)
