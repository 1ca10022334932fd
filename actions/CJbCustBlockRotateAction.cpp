// An action that turns its selection with its rotation parameter.
#include "actions/CJbCustBlockRotateAction.h"

#include "actions/CJbCustBlockActionImpl.h"
#include "parameters/CJbCustBlockRotationParameter.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockRotateAction, "JbCustBlockRotateAction",
                               CJbCustBlockAction)

namespace {
// The rotated point of a rotation parameter; its base is point 0.
constexpr unsigned kRotatedPoint = 2;

// A radius that gives no direction about the axis.
bool hasNoAngle(const OdGeVector3d& radius, const OdGeVector3d& axis) {
  return radius.isZeroLength() || radius.isParallelTo(axis);
}
}  // namespace

CJbCustBlockRotateAction::CJbCustBlockRotateAction()
    : CJbCustBlockAction(
          new CJbCustBlockActionImpl(CJbCustBlockActionImpl::kBaseOffsetModifier, 1)) {}

CJbCustBlockRotateAction::~CJbCustBlockRotateAction() = default;

OdString CJbCustBlockRotateAction::GetBaseName() const {
  return odTranslate("custblock_element", "Rotate");
}

bool CJbCustBlockRotateAction::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockAction::Evaluate(context)) return false;
  const CJbCustBlockRotationParameterPtr parameter =
      CJbCustBlockRotationParameter::cast(ParameterNode().get());
  if (parameter.isNull()) return false;
  const OdGeVector3d oldRadius =
      parameter->GetCurrentPosition(kRotatedPoint) - parameter->GetCurrentPosition(0);
  const OdGeVector3d newRadius =
      parameter->GetUpdatedPosition(kRotatedPoint) - parameter->GetUpdatedPosition(0);
  const OdGeVector3d axis = parameter->GetUpdatedNormal();
  if (axis.isZeroLength() || hasNoAngle(oldRadius, axis) || hasNoAngle(newRadius, axis))
    return true;
  const double angle = oldRadius.angleTo(newRadius, axis);
  return TransformAllSelections(context,
                                OdGeMatrix3d::rotation(angle, axis, ModifierBasePoint(*parameter)));
}

OdArray<OdRxClass*> CJbCustBlockRotateAction::GetAcceptableParameters() const {
  return OdArray<OdRxClass*>{CJbCustBlockRotationParameter::desc()};
}
