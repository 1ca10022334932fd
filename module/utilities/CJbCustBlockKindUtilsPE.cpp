#include "module/utilities/CJbCustBlockKindUtilsPE.h"

#include "core/CJbCustBlockElement.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

CJbCustBlockKindUtilsPE::CJbCustBlockKindUtilsPE(ClassGetter kind, const char* displayName,
                                                 const char* keyword)
    : m_kind(kind), m_displayName(displayName), m_keyword(keyword) {}

OdString CJbCustBlockKindUtilsPE::GetDisplayName() const {
  return odTranslate("custblock_element", m_displayName);
}

OdString CJbCustBlockKindUtilsPE::GetKeyword() const {
  return OdString(m_keyword);
}

OdRxObjectPtr CJbCustBlockKindUtilsPE::CreateElement() const {
  return NewObjectOf(GetKindClass());
}

OdRxObjectPtr CJbCustBlockKindUtilsPE::NewObjectOf(const OdRxClass* cls) {
  return cls && cls->constructor() ? cls->constructor()() : OdRxObjectPtr();
}

OdString CJbCustBlockKindUtilsPE::NameOf(const OdRxObject* object) const {
  const CJbCustBlockElementPtr element = CJbCustBlockElement::cast(object);
  return element.isNull() ? GetDisplayName() : element->GetName();
}
