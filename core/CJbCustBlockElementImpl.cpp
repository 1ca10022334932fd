// State shared by every element.
#include "core/CJbCustBlockElementImpl.h"

#include "core/CJbCustBlockElement.h"

CJbCustBlockElementImpl::CJbCustBlockElementImpl() = default;

CJbCustBlockElementImpl::~CJbCustBlockElementImpl() = default;

namespace {
void removeAll(OdArray<int>& ids, int id) {
  while (ids.remove(id)) {
  }
}
}  // namespace

void CJbCustBlockElementImpl::OnConnectionRemoved(int id) {
  removeAll(m_inConnections, id);
  removeAll(m_outConnections, id);
}

void CJbCustBlockElementImpl::CopyBaseFieldsFrom(const CJbCustBlockElementImpl& source) {
  m_elementId = source.m_elementId;
  m_inConnections = source.m_inConnections;
  m_outConnections = source.m_outConnections;
  m_visible = source.m_visible;
  m_name = source.m_name;
}
