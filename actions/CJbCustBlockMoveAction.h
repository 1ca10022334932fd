// An action that moves everything in its selection by the displacement of its parameter's point,
// after the angle offset and distance multiplier have been applied.
#pragma once

#include "actions/CJbCustBlockAction.h"

class CJbCustBlockMoveAction : public CJbCustBlockAction {
  ODRX_DECLARE_MEMBERS(CJbCustBlockMoveAction);

 public:
  CJbCustBlockMoveAction();
  ~CJbCustBlockMoveAction() override;

  OdString GetBaseName() const override;
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  // Point, linear, polar and XY parameters.
  OdArray<OdRxClass*> GetAcceptableParameters() const override;
};

using CJbCustBlockMoveActionPtr = OdSmartPtr<CJbCustBlockMoveAction>;
