// A parameter of one point: its values are the point (0) and the point's X (1) and Y (2).
#pragma once

#include "parameters/CJbCustBlockParameter.h"

class CJbCustBlockPointParameter : public CJbCustBlockParameter {
  ODRX_DECLARE_MEMBERS(CJbCustBlockPointParameter);

 public:
  enum Value { kPointValue = 0, kXValue = 1, kYValue = 2 };

  CJbCustBlockPointParameter();
  ~CJbCustBlockPointParameter() override;

  OdString GetBaseName() const override;
  // A drag of the point's grip moves the point by as much.
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  OdResBufPtr GetValue(unsigned index) const override;
  // The point takes a 3-D point, X and Y take reals; anything else, or a non-finite number, is
  // refused.
  bool SetValue(unsigned index, const OdResBufPtr& value) override;
};

using CJbCustBlockPointParameterPtr = OdSmartPtr<CJbCustBlockPointParameter>;
