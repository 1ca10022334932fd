// The data of a parameter spanned by a start and an end point.
#include "parameters/CJbCustBlock2PointParameterImpl.h"

CJbCustBlock2PointParameterImpl::CJbCustBlock2PointParameterImpl() : CJbCustBlockParameterImpl(2) {}

OdGeVector3d CJbCustBlock2PointParameterImpl::Span(int which) const {
  const PointRecord& start = m_points[0];
  const PointRecord& end = m_points[1];
  if (which == kUpdated) return end.updated - start.updated;
  if (which == kCurrent) return end.current - start.current;
  return end.defined - start.defined;
}

double CJbCustBlock2PointParameterImpl::GetDistance(int which) const {
  return Span(which).length();
}

OdGeVector3d CJbCustBlock2PointParameterImpl::GetDirection(int which) const {
  OdGeVector3d direction = Span(which <= kUpdated ? kUpdated : which);
  if (which <= kCurrent && direction.isZeroLength()) direction = Span(kCurrent);
  if (direction.isZeroLength()) direction = Span(kDefined);
  if (direction.isZeroLength()) return OdGeVector3d::kXAxis;
  return direction.normal();
}
