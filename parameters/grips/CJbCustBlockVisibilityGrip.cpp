// The grip of a visibility parameter.
#include "parameters/grips/CJbCustBlockVisibilityGrip.h"

#include "parameters/grips/CJbCustBlockStateGripImpl.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockVisibilityGrip, "JbCustBlockVisibilityGrip",
                               CJbCustBlockGrip)

CJbCustBlockVisibilityGrip::CJbCustBlockVisibilityGrip()
    : CJbCustBlockGrip(new CJbCustBlockStateGripImpl) {}

CJbCustBlockVisibilityGrip::~CJbCustBlockVisibilityGrip() = default;

CJbCustBlockStateGripImpl* CJbCustBlockVisibilityGrip::StateImpl() const {
  return static_cast<CJbCustBlockStateGripImpl*>(GripImpl());
}

OdString CJbCustBlockVisibilityGrip::GetBaseName() const {
  return odTranslate("custblock_element", "VisibilityGrip");
}

CJbCustBlockGrip::GripType CJbCustBlockVisibilityGrip::GetType() const {
  return kStateGrip;
}

bool CJbCustBlockVisibilityGrip::IsAlwaysVisible() const {
  return true;
}

bool CJbCustBlockVisibilityGrip::NeedEvaluate() const {
  return false;
}

unsigned CJbCustBlockVisibilityGrip::GetState() const {
  AssertReadEnabled();
  return static_cast<unsigned>(StateImpl()->State(*this));
}

void CJbCustBlockVisibilityGrip::SetState(unsigned state) {
  AssertReadEnabled();
  StateImpl()->Request(static_cast<int>(state));
}

void CJbCustBlockVisibilityGrip::ResetState() {
  AssertReadEnabled();
  StateImpl()->ClearRequest();
}
