// An action that moves its selection by the displacement of its parameter's point through a stretch
// frame: entities crossing the frame have only their stretch points inside it moved, the others
// move whole.
#pragma once

#include "actions/CJbCustBlockAction.h"

class CJbCustBlockStretchAction : public CJbCustBlockAction {
  ODRX_DECLARE_MEMBERS(CJbCustBlockStretchAction);

 public:
  CJbCustBlockStretchAction();
  ~CJbCustBlockStretchAction() override;

  OdString GetBaseName() const override;
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  // Every set is a stretch set.
  bool IsAreaRequired(unsigned set) const override;
  // Point, linear, polar and XY parameters.
  OdArray<OdRxClass*> GetAcceptableParameters() const override;
};

using CJbCustBlockStretchActionPtr = OdSmartPtr<CJbCustBlockStretchAction>;
