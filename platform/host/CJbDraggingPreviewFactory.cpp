#include "platform/host/CJbDraggingPreviewFactory.h"

#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(CJbDraggingPreviewFactory, OdRxObject)
