// An action that follows the end of a polar parameter: both of its sets turn about the other end
// with the parameter, then its first set is stretched along the new direction by the change of
// length (crossing entities stretched, the rest of the set moved).
#pragma once

#include "actions/CJbCustBlockAction.h"

class CJbCustBlockPolarStretchAction : public CJbCustBlockAction {
  ODRX_DECLARE_MEMBERS(CJbCustBlockPolarStretchAction);

 public:
  CJbCustBlockPolarStretchAction();
  ~CJbCustBlockPolarStretchAction() override;

  OdString GetBaseName() const override;
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  // Set 0 is the stretch set, except while it is being turned as a whole.
  bool IsAreaRequired(unsigned set) const override;
  // Polar parameters only.
  OdArray<OdRxClass*> GetAcceptableParameters() const override;

 private:
  bool m_rotationInProgress = false;
};

using CJbCustBlockPolarStretchActionPtr = OdSmartPtr<CJbCustBlockPolarStretchAction>;
