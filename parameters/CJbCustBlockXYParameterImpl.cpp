// The data of an XY parameter.
#include "parameters/CJbCustBlockXYParameterImpl.h"

#include <cmath>

CJbCustBlockXYParameterImpl::CJbCustBlockXYParameterImpl() : CJbCustBlockParameterImpl(4) {
  AddValueInfo(CJbCustBlockParameterValueInfo::kXDistance);
  AddValueInfo(CJbCustBlockParameterValueInfo::kYDistance);
}

void CJbCustBlockXYParameterImpl::DeriveCorners(OdGePoint3d PointRecord::*positions) {
  const OdGePoint3d& base = m_points[kBase].*positions;
  const OdGePoint3d& corner = m_points[kCorner].*positions;
  m_points[kXCorner].*positions = OdGePoint3d(corner.x, base.y, base.z);
  m_points[kYCorner].*positions = OdGePoint3d(base.x, corner.y, base.z);
}

OdGePoint3d CJbCustBlockXYParameterImpl::CornerFor(unsigned index, const OdGePoint3d& point,
                                                   OdGePoint3d PointRecord::*positions) const {
  OdGePoint3d corner = m_points[kCorner].*positions;
  if (index == kXCorner) corner.x = point.x;
  if (index == kYCorner) corner.y = point.y;
  if (index == kCorner) corner = point;
  return corner;
}

void CJbCustBlockXYParameterImpl::PlaceDistance(int axis, double distance) {
  const OdGePoint3d& base = m_points[kBase].updated;
  OdGePoint3d& corner = m_points[kCorner].updated;
  double& coordinate = axis == 0 ? corner.x : corner.y;
  const double origin = axis == 0 ? base.x : base.y;
  coordinate = origin + (coordinate < origin ? -1.0 : 1.0) * std::fabs(distance);
  DeriveCorners(&PointRecord::updated);
}
