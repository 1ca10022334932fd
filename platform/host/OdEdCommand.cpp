// Commands: the run-time class and the default local name.
#include "platform/host/OdEdCommand.h"

#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdEdCommand, OdRxObject)

OdString OdEdCommand::localName() const {
  return globalName();
}
