// The data of a linear parameter.
#include "parameters/CJbCustBlockLinearParameterImpl.h"

#include <cmath>

CJbCustBlockLinearParameterImpl::CJbCustBlockLinearParameterImpl() {
  AddValueInfo(CJbCustBlockParameterValueInfo::kDistance);
}

void CJbCustBlockLinearParameterImpl::PlaceLength(double length) {
  const double d = std::fabs(length);
  const OdGeVector3d u = GetDirection(kUpdated);
  OdGePoint3d& start = m_points[0].updated;
  OdGePoint3d& end = m_points[1].updated;
  if (m_basePosition == 0) {
    end = start + u * d;
    return;
  }
  const OdGePoint3d middle = start + (end - start) * 0.5;
  start = middle - u * (d / 2);
  end = middle + u * (d / 2);
}
