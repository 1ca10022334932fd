// The grip of a rotation parameter.
#include "parameters/grips/CJbCustBlockRotationGrip.h"

#include "parameters/grips/CJbCustBlockGripImpl.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockRotationGrip, "JbCustBlockRotationGrip",
                               CJbCustBlockGrip)

CJbCustBlockRotationGrip::CJbCustBlockRotationGrip() : CJbCustBlockGrip(new CJbCustBlockGripImpl) {}

CJbCustBlockRotationGrip::~CJbCustBlockRotationGrip() = default;

OdString CJbCustBlockRotationGrip::GetBaseName() const {
  return odTranslate("custblock_element", "RotationGrip");
}

CJbCustBlockGrip::GripType CJbCustBlockRotationGrip::GetType() const {
  return kRotationGrip;
}
