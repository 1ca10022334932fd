// A parameter spanning a rectangle from a base point to a corner: its values are the horizontal
// (0) and vertical (1) distances, each snapped to its own value set. Moving any of its four points
// moves the corner; the base point stays unless it is dragged itself.
#pragma once

#include "parameters/CJbCustBlockParameter.h"

class CJbCustBlockXYParameterImpl;

class CJbCustBlockXYParameter : public CJbCustBlockParameter {
  ODRX_DECLARE_MEMBERS(CJbCustBlockXYParameter);

 public:
  enum Value { kXDistanceValue = 0, kYDistanceValue = 1 };

  CJbCustBlockXYParameter();
  ~CJbCustBlockXYParameter() override;

  OdString GetBaseName() const override;
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool Transform(const OdGeMatrix3d& matrix, bool keepUpdated) override;
  OdResBufPtr GetValue(unsigned index) const override;
  // Reals only; a negative distance counts as positive, a non-finite one is refused.
  bool SetValue(unsigned index, const OdResBufPtr& value) override;
  void SetDefinedPosition(unsigned index, const OdGePoint3d& point) override;
  void SetCurrentPosition(unsigned index, const OdGePoint3d& point) override;
  void SetUpdatedPosition(unsigned index, const OdGePoint3d& point) override;

 private:
  CJbCustBlockXYParameterImpl* XYImpl() const;
};

using CJbCustBlockXYParameterPtr = OdSmartPtr<CJbCustBlockXYParameter>;
