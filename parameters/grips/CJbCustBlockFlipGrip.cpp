// The grip of a flip parameter.
#include "parameters/grips/CJbCustBlockFlipGrip.h"

#include "parameters/grips/CJbCustBlockFlipGripImpl.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockFlipGrip, "JbCustBlockFlipGrip", CJbCustBlockGrip)

CJbCustBlockFlipGrip::CJbCustBlockFlipGrip() : CJbCustBlockGrip(new CJbCustBlockFlipGripImpl) {}

CJbCustBlockFlipGrip::~CJbCustBlockFlipGrip() = default;

CJbCustBlockFlipGripImpl* CJbCustBlockFlipGrip::FlipImpl() const {
  return static_cast<CJbCustBlockFlipGripImpl*>(GripImpl());
}

OdString CJbCustBlockFlipGrip::GetBaseName() const {
  return odTranslate("custblock_element", "MirrorGrip");
}

CJbCustBlockGrip::GripType CJbCustBlockFlipGrip::GetType() const {
  return kFlipGrip;
}

bool CJbCustBlockFlipGrip::NeedEvaluate() const {
  return IsFlipped();
}

bool CJbCustBlockFlipGrip::IsFlipped() const {
  AssertReadEnabled();
  return FlipImpl()->m_flipped;
}

void CJbCustBlockFlipGrip::SetFlipped(bool flipped) {
  AssertReadEnabled();
  FlipImpl()->m_flipped = flipped;
}
