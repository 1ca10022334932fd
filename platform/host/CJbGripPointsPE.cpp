#include "platform/host/CJbGripPointsPE.h"

#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(CJbGripPointsPE, OdRxObject)

OdArray<OdString> CJbGripPointsPE::GetGripStates(const OdDbEntity*, unsigned, int& current) const {
  current = -1;
  return OdArray<OdString>();
}
