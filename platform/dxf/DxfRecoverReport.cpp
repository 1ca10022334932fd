// Issues of a tolerant read.
#include "platform/dxf/DxfRecoverReport.h"

#include <algorithm>

void DxfRecoverReport::add(const char* code, std::string message, std::vector<OdDbHandle> handles) {
  m_issues.push_back({code, std::move(message), std::move(handles)});
}

std::size_t DxfRecoverReport::count(const std::string& code) const {
  return static_cast<std::size_t>(std::count_if(
      m_issues.begin(), m_issues.end(), [&](const Issue& issue) { return issue.code == code; }));
}
