// An action that moves its selection by its parameter point's displacement.
#include "actions/CJbCustBlockMoveAction.h"

#include "actions/CJbCustBlockActionImpl.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockPointParameter.h"
#include "parameters/CJbCustBlockPolarParameter.h"
#include "parameters/CJbCustBlockXYParameter.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockMoveAction, "JbCustBlockMoveAction", CJbCustBlockAction)

CJbCustBlockMoveAction::CJbCustBlockMoveAction()
    : CJbCustBlockAction(
          new CJbCustBlockActionImpl(CJbCustBlockActionImpl::kAngleOffsetModifier, 1)) {}

CJbCustBlockMoveAction::~CJbCustBlockMoveAction() = default;

OdString CJbCustBlockMoveAction::GetBaseName() const {
  return odTranslate("custblock_element", "Move");
}

bool CJbCustBlockMoveAction::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockAction::Evaluate(context)) return false;
  return TranslateByParameterPoint(context);
}

OdArray<OdRxClass*> CJbCustBlockMoveAction::GetAcceptableParameters() const {
  return OdArray<OdRxClass*>{CJbCustBlockPointParameter::desc(),
                             CJbCustBlockLinearParameter::desc(),
                             CJbCustBlockPolarParameter::desc(), CJbCustBlockXYParameter::desc()};
}
