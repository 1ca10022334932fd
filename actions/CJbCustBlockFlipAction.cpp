// An action that mirrors its selection when its flip parameter changes state.
#include "actions/CJbCustBlockFlipAction.h"

#include "actions/CJbCustBlockActionImpl.h"
#include "parameters/CJbCustBlockFlipParameter.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePlane.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockFlipAction, "JbCustBlockFlipAction", CJbCustBlockAction)

CJbCustBlockFlipAction::CJbCustBlockFlipAction()
    : CJbCustBlockAction(new CJbCustBlockActionImpl(CJbCustBlockActionImpl::kNoModifier, 1)) {}

CJbCustBlockFlipAction::~CJbCustBlockFlipAction() = default;

OdString CJbCustBlockFlipAction::GetBaseName() const {
  return odTranslate("custblock_element", "Mirror");
}

bool CJbCustBlockFlipAction::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockAction::Evaluate(context)) return false;
  const CJbCustBlockFlipParameterPtr parameter =
      CJbCustBlockFlipParameter::cast(ParameterNode().get());
  if (parameter.isNull()) return false;
  // An evaluation that did not change the state is reported as not done.
  if (parameter->IsCurrentFlipped() == parameter->IsUpdatedFlipped()) return false;
  const OdGePoint3d start = parameter->GetUpdatedPosition(0);
  const OdGeVector3d line = parameter->GetUpdatedPosition(1) - start;
  // A line along the Z axis spans no mirror plane with it.
  if (line.isZeroLength() || line.isParallelTo(OdGeVector3d::kZAxis)) return true;
  const OdGePlane plane(start, line.crossProduct(OdGeVector3d::kZAxis));
  return TransformAllSelections(context, OdGeMatrix3d::mirroring(plane));
}

bool CJbCustBlockFlipAction::IsParameterPointIndexReadOnly() const {
  return true;
}

OdArray<OdRxClass*> CJbCustBlockFlipAction::GetAcceptableParameters() const {
  return OdArray<OdRxClass*>{CJbCustBlockFlipParameter::desc()};
}
