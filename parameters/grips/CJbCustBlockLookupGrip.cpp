// The grip of a lookup parameter.
#include "parameters/grips/CJbCustBlockLookupGrip.h"

#include "parameters/grips/CJbCustBlockStateGripImpl.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockLookupGrip, "JbCustBlockLookupGrip", CJbCustBlockGrip)

CJbCustBlockLookupGrip::CJbCustBlockLookupGrip()
    : CJbCustBlockGrip(new CJbCustBlockStateGripImpl) {}

CJbCustBlockLookupGrip::~CJbCustBlockLookupGrip() = default;

CJbCustBlockStateGripImpl* CJbCustBlockLookupGrip::StateImpl() const {
  return static_cast<CJbCustBlockStateGripImpl*>(GripImpl());
}

OdString CJbCustBlockLookupGrip::GetBaseName() const {
  return odTranslate("custblock_element", "TableGrip");
}

CJbCustBlockGrip::GripType CJbCustBlockLookupGrip::GetType() const {
  return kStateGrip;
}

bool CJbCustBlockLookupGrip::NeedEvaluate() const {
  AssertReadEnabled();
  return StateImpl()->IsRequested();
}

int CJbCustBlockLookupGrip::GetState() const {
  AssertReadEnabled();
  return StateImpl()->State(*this);
}

void CJbCustBlockLookupGrip::SetState(int state) {
  AssertReadEnabled();
  StateImpl()->Request(state);
}

void CJbCustBlockLookupGrip::ResetState() {
  AssertReadEnabled();
  StateImpl()->ClearRequest();
}
