// The data of an evaluation graph and the algorithms over it.
#include "core/CJbDbCustBlockGraphImpl.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "core/CJbCustBlockElementClasses.h"
#include "core/CJbCustBlockElementImpl.h"

CJbCustBlockElement* CJbDbCustBlockGraphImpl::NodeAt(int id) const {
  auto it = m_nodes.find(id);
  return it == m_nodes.end() ? nullptr : it->second.element.get();
}

void CJbDbCustBlockGraphImpl::AllNodeIds(OdArray<int>& ids) const {
  ids.reserve(ids.length() + static_cast<unsigned>(m_nodes.size()));
  for (const auto& entry : m_nodes)
    ids.append(entry.first);
}

namespace {
int wrappedSuccessor(int id) {
  return static_cast<int>(static_cast<std::uint32_t>(id) + 1u);
}
}  // namespace

int CJbDbCustBlockGraphImpl::AllocateId() {
  // The first candidate wraps as it stands; later ones restart at 1 instead of going negative.
  // 0 is the null id and never handed out.
  int candidate = wrappedSuccessor(m_lastId);
  while (candidate == 0 || m_nodes.count(candidate) != 0) {
    const int next = wrappedSuccessor(candidate);
    candidate = next > 0 ? next : 1;
  }
  m_lastId = candidate;
  return candidate;
}

OdArray<int> CJbDbCustBlockGraphImpl::BuildWorkList() const {
  OdArray<int> work;
  const unsigned mark = NextMark();
  for (const auto& entry : m_nodes) {
    if (entry.second.element->NeedEvaluate()) {
      work.append(entry.first);
      entry.second.visitMark = mark;
    }
  }
  for (unsigned i = 0; i < work.length(); ++i) {
    const Node& node = m_nodes.find(work[i])->second;
    for (int next : node.element->Impl()->m_outConnections) {
      auto it = m_nodes.find(next);
      if (it == m_nodes.end() || it->second.visitMark == mark) continue;
      it->second.visitMark = mark;
      work.append(next);
    }
  }
  return work;
}

OdArray<int> CJbDbCustBlockGraphImpl::OrderForDefinition(const OdArray<int>& ids) const {
  // Depth-first post-order over the out-connections, without recursion so that long chains cannot
  // exhaust the stack; connections into grips and suppressed ones are not followed.
  const unsigned visited = NextMark();
  OdArray<int> postOrder;
  postOrder.reserve(static_cast<unsigned>(m_nodes.size()));
  const OdRxClass* gripClass = CJbCustBlockElementClasses::GripClass();
  std::vector<std::pair<NodeMap::const_iterator, unsigned>> stack;
  auto enter = [&](NodeMap::const_iterator node) {
    node->second.visitMark = visited;
    stack.emplace_back(node, 0u);
  };
  for (auto root = m_nodes.begin(); root != m_nodes.end(); ++root) {
    if (root->second.visitMark == visited) continue;
    enter(root);
    while (!stack.empty()) {
      const NodeMap::const_iterator node = stack.back().first;
      const CJbCustBlockElement& element = *node->second.element;
      const OdArray<int>& out = element.Impl()->m_outConnections;
      unsigned& next = stack.back().second;
      NodeMap::const_iterator child = m_nodes.end();
      while (next < out.length() && child == m_nodes.end()) {
        const int id = out[next++];
        if (element.IsConnectionSuppressed(id)) continue;
        auto it = m_nodes.find(id);
        if (it == m_nodes.end() || it->second.visitMark == visited) continue;
        if (gripClass && it->second.element->isKindOf(gripClass)) continue;
        child = it;
      }
      if (child != m_nodes.end()) {
        enter(child);
      } else {
        postOrder.append(node->first);
        stack.pop_back();
      }
    }
  }

  const unsigned selected = NextMark();
  for (int id : ids) {
    auto it = m_nodes.find(id);
    if (it != m_nodes.end()) it->second.selectMark = selected;
  }
  std::vector<std::pair<int, int>> ordered;  // (priority, id)
  ordered.reserve(ids.length());
  for (auto it = postOrder.end(); it != postOrder.begin();) {
    const Node& node = m_nodes.find(*--it)->second;
    if (node.selectMark == selected) ordered.emplace_back(node.element->GetPriority(), *it);
  }
  std::stable_sort(ordered.begin(), ordered.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  OdArray<int> result;
  result.reserve(static_cast<unsigned>(ordered.size()));
  for (const auto& entry : ordered)
    result.append(entry.second);
  return result;
}
