// An action that mirrors its selection across its flip parameter's reflection line whenever the
// parameter's state changes. Dependent actions with an angle offset have it negated by the mirror.
#pragma once

#include "actions/CJbCustBlockAction.h"

class CJbCustBlockFlipAction : public CJbCustBlockAction {
  ODRX_DECLARE_MEMBERS(CJbCustBlockFlipAction);

 public:
  CJbCustBlockFlipAction();
  ~CJbCustBlockFlipAction() override;

  OdString GetBaseName() const override;
  // False without a flip parameter and when the state did not change.
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  // The line is the parameter's whole span.
  bool IsParameterPointIndexReadOnly() const override;
  // Flip parameters only.
  OdArray<OdRxClass*> GetAcceptableParameters() const override;
};

using CJbCustBlockFlipActionPtr = OdSmartPtr<CJbCustBlockFlipAction>;
