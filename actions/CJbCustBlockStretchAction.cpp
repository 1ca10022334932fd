// An action that stretches its selection through a frame by its parameter point's displacement.
#include "actions/CJbCustBlockStretchAction.h"

#include "actions/CJbCustBlockActionImpl.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockPointParameter.h"
#include "parameters/CJbCustBlockPolarParameter.h"
#include "parameters/CJbCustBlockXYParameter.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockStretchAction, "JbCustBlockStretchAction",
                               CJbCustBlockAction)

CJbCustBlockStretchAction::CJbCustBlockStretchAction()
    : CJbCustBlockAction(
          new CJbCustBlockActionImpl(CJbCustBlockActionImpl::kAngleOffsetModifier, 1)) {}

CJbCustBlockStretchAction::~CJbCustBlockStretchAction() = default;

OdString CJbCustBlockStretchAction::GetBaseName() const {
  return odTranslate("custblock_element", "Stretch");
}

bool CJbCustBlockStretchAction::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockAction::Evaluate(context)) return false;
  return TranslateByParameterPoint(context);
}

bool CJbCustBlockStretchAction::IsAreaRequired(unsigned) const {
  return true;
}

OdArray<OdRxClass*> CJbCustBlockStretchAction::GetAcceptableParameters() const {
  return OdArray<OdRxClass*>{CJbCustBlockPointParameter::desc(),
                             CJbCustBlockLinearParameter::desc(),
                             CJbCustBlockPolarParameter::desc(), CJbCustBlockXYParameter::desc()};
}
