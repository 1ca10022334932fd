// The grip of an XY parameter's corner.
#include "parameters/grips/CJbCustBlockXYGrip.h"

#include "parameters/grips/CJbCustBlockGripImpl.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockXYGrip, "JbCustBlockXYGrip", CJbCustBlockGrip)

CJbCustBlockXYGrip::CJbCustBlockXYGrip() : CJbCustBlockGrip(new CJbCustBlockGripImpl) {}

CJbCustBlockXYGrip::~CJbCustBlockXYGrip() = default;

OdString CJbCustBlockXYGrip::GetBaseName() const {
  return odTranslate("custblock_element", "XYGrip");
}

CJbCustBlockGrip::GripType CJbCustBlockXYGrip::GetType() const {
  return kPointGrip;
}
