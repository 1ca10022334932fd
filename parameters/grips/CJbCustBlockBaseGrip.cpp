// A grip that moves one point freely.
#include "parameters/grips/CJbCustBlockBaseGrip.h"

#include "parameters/grips/CJbCustBlockGripImpl.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockBaseGrip, "JbCustBlockBaseGrip", CJbCustBlockGrip)

CJbCustBlockBaseGrip::CJbCustBlockBaseGrip() : CJbCustBlockGrip(new CJbCustBlockGripImpl) {}

CJbCustBlockBaseGrip::~CJbCustBlockBaseGrip() = default;

OdString CJbCustBlockBaseGrip::GetBaseName() const {
  return odTranslate("custblock_element", "BaseGrip");
}

CJbCustBlockGrip::GripType CJbCustBlockBaseGrip::GetType() const {
  return kPointGrip;
}
