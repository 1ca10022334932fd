// Transient object reactor: default notices do nothing.
#include "platform/db/OdDbObjectReactor.h"

#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbObjectReactor, OdRxObject)

void OdDbObjectReactor::copied(const OdDbObject*, const OdDbObject*) {}
void OdDbObjectReactor::erased(const OdDbObject*, bool) {}
void OdDbObjectReactor::goodbye(const OdDbObject*) {}
void OdDbObjectReactor::openedForModify(const OdDbObject*) {}
void OdDbObjectReactor::modified(const OdDbObject*) {}
