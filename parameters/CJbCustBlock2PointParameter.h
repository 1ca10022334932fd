// A parameter spanned by a start point (0) and an end point (1): the common base of the linear
// and polar parameters.
#pragma once

#include "parameters/CJbCustBlockParameter.h"

class CJbCustBlock2PointParameterImpl;

class CJbCustBlock2PointParameter : public CJbCustBlockParameter {
  ODRX_DECLARE_MEMBERS(CJbCustBlock2PointParameter);

 public:
  ~CJbCustBlock2PointParameter() override;

  // `which`: 0 updated, 1 current, above 1 defined positions.
  double GetDistance(int which) const;
  OdGeVector3d GetDirection(int which) const;

 protected:
  explicit CJbCustBlock2PointParameter(CJbCustBlock2PointParameterImpl* impl);
  CJbCustBlock2PointParameterImpl* TwoPointImpl() const;
};

using CJbCustBlock2PointParameterPtr = OdSmartPtr<CJbCustBlock2PointParameter>;
