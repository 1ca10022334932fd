// The grip of an alignment parameter.
#include "parameters/grips/CJbCustBlockAlignmentGrip.h"

#include "parameters/grips/CJbCustBlockStateGripImpl.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockAlignmentGrip, "JbCustBlockAlignmentGrip",
                               CJbCustBlockGrip)

CJbCustBlockAlignmentGrip::CJbCustBlockAlignmentGrip()
    : CJbCustBlockGrip(new CJbCustBlockStateGripImpl) {}

CJbCustBlockAlignmentGrip::~CJbCustBlockAlignmentGrip() = default;

CJbCustBlockStateGripImpl* CJbCustBlockAlignmentGrip::StateImpl() const {
  return static_cast<CJbCustBlockStateGripImpl*>(GripImpl());
}

OdString CJbCustBlockAlignmentGrip::GetBaseName() const {
  return odTranslate("custblock_element", "AlignmentGrip");
}

CJbCustBlockGrip::GripType CJbCustBlockAlignmentGrip::GetType() const {
  return kAlignmentGrip;
}

bool CJbCustBlockAlignmentGrip::IsFixed() const {
  return true;
}

bool CJbCustBlockAlignmentGrip::GathersCyclingPoints() const {
  return true;
}

bool CJbCustBlockAlignmentGrip::NeedEvaluate() const {
  AssertReadEnabled();
  return StateImpl()->IsRequested();
}

int CJbCustBlockAlignmentGrip::GetState() const {
  AssertReadEnabled();
  return StateImpl()->State(*this);
}

void CJbCustBlockAlignmentGrip::SetState(int state) {
  AssertReadEnabled();
  StateImpl()->Request(state);
}

void CJbCustBlockAlignmentGrip::ResetState() {
  AssertReadEnabled();
  StateImpl()->ClearRequest();
}
