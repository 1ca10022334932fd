// A parameter spanned by a start and an end point.
#include "parameters/CJbCustBlock2PointParameter.h"

#include "parameters/CJbCustBlock2PointParameterImpl.h"
#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlock2PointParameter, "JbCustBlock2PointParameter",
                                  CJbCustBlockParameter)

CJbCustBlock2PointParameter::CJbCustBlock2PointParameter(CJbCustBlock2PointParameterImpl* impl)
    : CJbCustBlockParameter(impl) {}

CJbCustBlock2PointParameter::~CJbCustBlock2PointParameter() = default;

CJbCustBlock2PointParameterImpl* CJbCustBlock2PointParameter::TwoPointImpl() const {
  return static_cast<CJbCustBlock2PointParameterImpl*>(ParameterImpl());
}

double CJbCustBlock2PointParameter::GetDistance(int which) const {
  AssertReadEnabled();
  return TwoPointImpl()->GetDistance(which);
}

OdGeVector3d CJbCustBlock2PointParameter::GetDirection(int which) const {
  AssertReadEnabled();
  return TwoPointImpl()->GetDirection(which);
}
