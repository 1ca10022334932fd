// An action that scales its selection with the length of its parameter.
#include "actions/CJbCustBlockScaleAction.h"

#include "actions/CJbCustBlockActionImpl.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockPolarParameter.h"
#include "parameters/CJbCustBlockXYParameter.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockScaleAction, "JbCustBlockScaleAction",
                               CJbCustBlockAction)

namespace {
CJbCustBlockActionImpl* newScaleImpl() {
  auto* impl = new CJbCustBlockActionImpl(CJbCustBlockActionImpl::kBaseOffsetModifier, 1);
  impl->m_pointIndex = 1;
  return impl;
}
}  // namespace

CJbCustBlockScaleAction::CJbCustBlockScaleAction() : CJbCustBlockAction(newScaleImpl()) {}

CJbCustBlockScaleAction::~CJbCustBlockScaleAction() = default;

OdString CJbCustBlockScaleAction::GetBaseName() const {
  return odTranslate("custblock_element", "Scale");
}

bool CJbCustBlockScaleAction::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockAction::Evaluate(context)) return false;
  const CJbCustBlockParameterPtr parameter = CJbCustBlockParameter::cast(ParameterNode().get());
  if (parameter.isNull()) return false;
  const OdGePoint3d base = ModifierBasePoint(*parameter);
  const unsigned index = GetParameterPointIndex();
  const OdGeVector3d oldSpan =
      parameter->GetCurrentPosition(index) - parameter->GetCurrentPosition(0);
  const OdGeVector3d newSpan =
      parameter->GetUpdatedPosition(index) - parameter->GetUpdatedPosition(0);
  // A length of nothing gives no ratio; the selection keeps its size rather than collapse.
  if (oldSpan.isZeroLength() || newSpan.isZeroLength()) return true;
  return TransformAllSelections(context,
                                OdGeMatrix3d::scaling(newSpan.length() / oldSpan.length(), base));
}

bool CJbCustBlockScaleAction::IsParameterPointIndexReadOnly() const {
  return true;
}

bool CJbCustBlockScaleAction::HasParameterPointIndex() const {
  return false;
}

OdArray<OdRxClass*> CJbCustBlockScaleAction::GetAcceptableParameters() const {
  return OdArray<OdRxClass*>{CJbCustBlockLinearParameter::desc(),
                             CJbCustBlockPolarParameter::desc(), CJbCustBlockXYParameter::desc()};
}
