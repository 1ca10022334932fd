// A parameter whose value is the distance between its start and end points. A drag of either
// grip is taken along the line only and snapped to the distance value set; the length is kept
// from the start point or symmetrically about the midpoint.
#pragma once

#include "parameters/CJbCustBlock2PointParameter.h"

class CJbCustBlockLinearParameterImpl;

class CJbCustBlockLinearParameter : public CJbCustBlock2PointParameter {
  ODRX_DECLARE_MEMBERS(CJbCustBlockLinearParameter);

 public:
  // Offered to the user as "_Startpoint" and "_Midpoint".
  enum BasePointPosition { kStartPoint = 0, kMidpoint = 1 };

  CJbCustBlockLinearParameter();
  ~CJbCustBlockLinearParameter() override;

  OdString GetBaseName() const override;
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  OdResBufPtr GetValue(unsigned index) const override;
  // Index 0 takes a real; a negative length counts as positive. A non-finite one is refused.
  bool SetValue(unsigned index, const OdResBufPtr& value) override;
  // After the base fields: the base position.
  OdResult dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) override;
  void dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const override;

  BasePointPosition GetBasePosition() const;
  void SetBasePosition(BasePointPosition position);

 private:
  CJbCustBlockLinearParameterImpl* LinearImpl() const;
  // Moves point `k` by the part of its grip's drag along the line, unless that carries it across
  // or onto the base.
  void FollowGrip(unsigned k);
};

using CJbCustBlockLinearParameterPtr = OdSmartPtr<CJbCustBlockLinearParameter>;
