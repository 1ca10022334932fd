// The grip of a polar parameter's point.
#include "parameters/grips/CJbCustBlockPolarGrip.h"

#include "parameters/grips/CJbCustBlockGripImpl.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockPolarGrip, "JbCustBlockPolarGrip", CJbCustBlockGrip)

CJbCustBlockPolarGrip::CJbCustBlockPolarGrip() : CJbCustBlockGrip(new CJbCustBlockGripImpl) {}

CJbCustBlockPolarGrip::~CJbCustBlockPolarGrip() = default;

OdString CJbCustBlockPolarGrip::GetBaseName() const {
  return odTranslate("custblock_element", "BaseGrip");
}

CJbCustBlockGrip::GripType CJbCustBlockPolarGrip::GetType() const {
  return kPointGrip;
}
