// The data every parameter holds.
#include "parameters/CJbCustBlockParameterImpl.h"

CJbCustBlockParameterImpl::CJbCustBlockParameterImpl(unsigned pointCount) : m_points(pointCount) {}

CJbCustBlockParameterImpl::~CJbCustBlockParameterImpl() = default;

void CJbCustBlockParameterImpl::OnConnectionRemoved(int id) {
  CJbCustBlockElementImpl::OnConnectionRemoved(id);
  for (PointRecord& point : m_points) {
    if (point.grip == id) point.grip = 0;
  }
}

CJbCustBlockParameterValueInfo* CJbCustBlockParameterImpl::AddValueInfo(
    CJbCustBlockParameterValueInfo::ValueType type, int parentIndex) {
  CJbCustBlockParameterValueInfo* parent =
      parentIndex >= 0 ? m_valueInfos.at(static_cast<std::size_t>(parentIndex)).get() : nullptr;
  m_valueInfos.push_back(std::make_unique<CJbCustBlockParameterValueInfo>(type, parent));
  return m_valueInfos.back().get();
}
