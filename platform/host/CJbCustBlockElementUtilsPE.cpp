#include "platform/host/CJbCustBlockElementUtilsPE.h"

#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(CJbCustBlockElementUtilsPE, OdRxObject)

OdArray<OdRxObjectPtr> CJbCustBlockElementUtilsPE::GetParts(const OdRxObject*) const {
  return {};
}
