// An action that turns and stretches its selection with the end of a polar parameter.
#include "actions/CJbCustBlockPolarStretchAction.h"

#include "actions/CJbCustBlockActionImpl.h"
#include "parameters/CJbCustBlockPolarParameter.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockPolarStretchAction, "JbCustBlockPolarStretchAction",
                               CJbCustBlockAction)

CJbCustBlockPolarStretchAction::CJbCustBlockPolarStretchAction()
    : CJbCustBlockAction(
          new CJbCustBlockActionImpl(CJbCustBlockActionImpl::kAngleOffsetModifier, 2)) {}

CJbCustBlockPolarStretchAction::~CJbCustBlockPolarStretchAction() = default;

OdString CJbCustBlockPolarStretchAction::GetBaseName() const {
  return odTranslate("custblock_element", "PolarStretch");
}

bool CJbCustBlockPolarStretchAction::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockAction::Evaluate(context)) return false;
  const unsigned index = GetParameterPointIndex();
  if (index > 1) return false;
  const OdSmartPtr<CJbCustBlockPolarParameter> parameter =
      CJbCustBlockPolarParameter::cast(ParameterNode().get());
  if (parameter.isNull()) return false;
  OdGeVector3d delta = parameter->GetUpdatedPosition(index) - parameter->GetCurrentPosition(index);
  ApplyModifierOffset(delta);
  if (delta.isZeroLength()) return true;

  const OdGePoint3d centre = parameter->GetUpdatedPosition(1 - index);
  const OdGeVector3d oldVector = parameter->GetCurrentPosition(index) - centre;
  const OdGeVector3d newVector = oldVector + delta;
  if (!oldVector.isZeroLength() && !newVector.isZeroLength()) {
    const OdGeMatrix3d rotation = OdGeMatrix3d::rotation(
        oldVector.angleTo(newVector, OdGeVector3d::kZAxis), OdGeVector3d::kZAxis, centre);
    // While turning, the stretch set moves whole like the other one.
    const bool wasRotating = m_rotationInProgress;
    m_rotationInProgress = true;
    for (unsigned set = 0; set < GetRequiredSelectionSetCount(); ++set)
      TransformSelection(context, set, rotation);
    m_rotationInProgress = wasRotating;
  }
  if (newVector.isZeroLength()) return true;
  const double growth = newVector.length() - oldVector.length();
  return TransformSelection(context, 0, OdGeMatrix3d::translation(newVector.normal() * growth));
}

bool CJbCustBlockPolarStretchAction::IsAreaRequired(unsigned set) const {
  return set == 0 && !m_rotationInProgress;
}

OdArray<OdRxClass*> CJbCustBlockPolarStretchAction::GetAcceptableParameters() const {
  return OdArray<OdRxClass*>{CJbCustBlockPolarParameter::desc()};
}
