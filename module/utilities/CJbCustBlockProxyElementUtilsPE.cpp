#include "module/utilities/CJbCustBlockProxyElementUtilsPE.h"

#include "core/CJbCustBlockProxyElement.h"

CJbCustBlockProxyElementUtilsPE::CJbCustBlockProxyElementUtilsPE()
    : CJbCustBlockOtherKindUtilsPE(&CJbCustBlockProxyElement::desc, "Proxy Element", "PROXY") {}

OdString CJbCustBlockProxyElementUtilsPE::GetLabel(const OdRxObject* object) const {
  const CJbCustBlockProxyElementPtr proxy = CJbCustBlockProxyElement::cast(object);
  if (proxy.isNull()) return NameOf(object);
  return proxy->GetName() + " (" + proxy->GetOriginalClassName() + ")";
}
