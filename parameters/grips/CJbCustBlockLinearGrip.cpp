// The grip of a linear parameter's end.
#include "parameters/grips/CJbCustBlockLinearGrip.h"

#include "parameters/grips/CJbCustBlockGripImpl.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockLinearGrip, "JbCustBlockLinearGrip", CJbCustBlockGrip)

CJbCustBlockLinearGrip::CJbCustBlockLinearGrip() : CJbCustBlockGrip(new CJbCustBlockGripImpl) {}

CJbCustBlockLinearGrip::~CJbCustBlockLinearGrip() = default;

OdString CJbCustBlockLinearGrip::GetBaseName() const {
  return odTranslate("custblock_element", "LinearGrip");
}

CJbCustBlockGrip::GripType CJbCustBlockLinearGrip::GetType() const {
  return kLinearGrip;
}
