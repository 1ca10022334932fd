// The data of a rotation parameter.
#include "parameters/CJbCustBlockRotationParameterImpl.h"

CJbCustBlockRotationParameterImpl::CJbCustBlockRotationParameterImpl()
    : CJbCustBlockParameterImpl(3) {
  AddValueInfo(CJbCustBlockParameterValueInfo::kAngle);
}

OdGeVector3d CJbCustBlockRotationParameterImpl::Axis() const {
  return m_updatedNormal.isZeroLength() ? OdGeVector3d::kZAxis : m_updatedNormal;
}

double CJbCustBlockRotationParameterImpl::UpdatedAngle() const {
  const OdGePoint3d& base = m_points[kBase].updated;
  const OdGeVector3d reference = m_points[kReference].updated - base;
  const OdGeVector3d rotated = m_points[kRotated].updated - base;
  if (reference.isZeroLength() || rotated.isZeroLength()) return 0.0;
  return reference.angleTo(rotated, Axis());
}

void CJbCustBlockRotationParameterImpl::PlaceAngle(double angle) {
  const OdGePoint3d& base = m_points[kBase].updated;
  OdGeVector3d reference = m_points[kReference].updated - base;
  double radius = (m_points[kRotated].updated - base).length();
  if (radius <= OdGeContext::gTol.equalPoint()) radius = reference.length();
  if (reference.isZeroLength()) reference = OdGeVector3d::kXAxis;
  m_points[kRotated].updated = base + reference.normal().rotateBy(angle, Axis()) * radius;
}
