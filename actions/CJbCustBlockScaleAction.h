// An action that scales its selection by the ratio of its parameter's new length to its old one,
// about a base point: the parameter's base point plus the base offset (dependent base), or the
// offset alone, carried along by other actions (independent base).
#pragma once

#include "actions/CJbCustBlockAction.h"

class CJbCustBlockScaleAction : public CJbCustBlockAction {
  ODRX_DECLARE_MEMBERS(CJbCustBlockScaleAction);

 public:
  CJbCustBlockScaleAction();
  ~CJbCustBlockScaleAction() override;

  OdString GetBaseName() const override;
  // False without a parameter; a length that was or becomes zero scales nothing.
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  // Always measured from point 0 to point 1.
  bool IsParameterPointIndexReadOnly() const override;
  bool HasParameterPointIndex() const override;
  // Linear, polar and XY parameters.
  OdArray<OdRxClass*> GetAcceptableParameters() const override;
};

using CJbCustBlockScaleActionPtr = OdSmartPtr<CJbCustBlockScaleAction>;
