// System event reactor: default notices do nothing.
#include "platform/db/cloning/OdRxEventReactor.h"

#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdRxEventReactor, OdRxObject)

void OdRxEventReactor::beginDeepClone(OdDbDatabase*, OdDbIdMapping&) {}
void OdRxEventReactor::beginDeepCloneXlation(OdDbIdMapping&) {}
void OdRxEventReactor::endDeepClone(OdDbIdMapping&) {}
void OdRxEventReactor::abortDeepClone(OdDbIdMapping&) {}
