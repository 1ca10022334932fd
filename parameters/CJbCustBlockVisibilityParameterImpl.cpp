// The data of a visibility parameter.
#include "parameters/CJbCustBlockVisibilityParameterImpl.h"

CJbCustBlockVisibilityParameterImpl::CJbCustBlockVisibilityParameterImpl()
    : CJbCustBlockParameterImpl(1) {
  AddValueInfo(CJbCustBlockParameterValueInfo::kVisibility);
}

void CJbCustBlockVisibilityParameterImpl::RefreshCurrentEntities() {
  for (State& state : m_states)
    state.currentHidden = state.definedHidden;
}

int CJbCustBlockVisibilityParameterImpl::FindName(const OdString& name, int except) const {
  for (std::size_t i = 0; i < m_states.size(); ++i) {
    if (static_cast<int>(i) != except && m_states[i].name.iEquals(name)) return static_cast<int>(i);
  }
  return -1;
}
