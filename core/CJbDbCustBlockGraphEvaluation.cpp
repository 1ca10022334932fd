// How a graph evaluates.
#include "core/CJbDbCustBlockGraphEvaluation.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/CJbCustBlockElementImpl.h"
#include "core/CJbCustBlockGraphGrip.h"
#include "core/CJbCustBlockGraphParameter.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"

using Node = CJbDbCustBlockGraphImpl::Node;
using NodeMap = CJbDbCustBlockGraphImpl::NodeMap;

CJbDbCustBlockGraphEvaluation::CJbDbCustBlockGraphEvaluation(const CJbDbCustBlockGraphImpl& graph)
    : m_graph(graph), m_nodes(graph.m_nodes) {}

void CJbDbCustBlockGraphEvaluation::ForReference(const OdDbObjectId& blockRefId,
                                                 bool modifyBlockReferences) const {
  const OdArray<int> work = BuildWorkList();
  if (work.isEmpty()) return;
  const int mode =
      modifyBlockReferences ? CJbDbCustBlockGraphEvaluationContext::kModifyBlockReferences : 0;
  CJbDbCustBlockGraphEvaluationContextPtr context(
      new CJbDbCustBlockGraphEvaluationContext(mode, blockRefId));
  RunPasses(work, context.get(), true);
}

void CJbDbCustBlockGraphEvaluation::ForDefinition(const OdDbObjectId& blockDefId,
                                                  bool ignoreBlockEntities) const {
  const int mode =
      ignoreBlockEntities ? CJbDbCustBlockGraphEvaluationContext::kIgnoreBlockEntities : 0;
  const OdArray<int> changed = OrderForDefinition(BuildWorkList());
  CJbDbCustBlockGraphEvaluationContextPtr first(new CJbDbCustBlockGraphEvaluationContext(
      mode | CJbDbCustBlockGraphEvaluationContext::kAfterBlockRedefine, blockDefId));
  RunPasses(changed, first.get(), false);

  OdArray<int> all;
  m_graph.AllNodeIds(all);
  CJbDbCustBlockGraphEvaluationContextPtr second(
      new CJbDbCustBlockGraphEvaluationContext(mode, blockDefId));
  RunPasses(OrderForDefinition(all), second.get(), true);
}

void CJbDbCustBlockGraphEvaluation::RunPasses(const OdArray<int>& ids,
                                              CJbDbCustBlockGraphEvaluationContext* context,
                                              bool evaluateParameters) const {
  // The elements are looked up once and held for the three passes.
  std::vector<CJbCustBlockElementPtr> elements;
  elements.reserve(ids.length());
  for (int id : ids) {
    if (CJbCustBlockElement* node = m_graph.NodeAt(id)) elements.emplace_back(node);
  }
  for (const auto& element : elements)
    element->BeginEvaluate(context);
  for (const auto& element : elements) {
    if (evaluateParameters || !CJbCustBlockGraphParameter::Is(element.get()))
      element->Evaluate(context);
  }
  for (const auto& element : elements)
    element->EndEvaluate(context);
}

OdArray<int> CJbDbCustBlockGraphEvaluation::BuildWorkList() const {
  OdArray<int> work;
  const unsigned mark = m_graph.NextMark();
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

OdArray<int> CJbDbCustBlockGraphEvaluation::OrderForDefinition(const OdArray<int>& ids) const {
  // Depth-first post-order over the out-connections, without recursion so that long chains cannot
  // exhaust the stack; connections into grips and suppressed ones are not followed.
  const unsigned visited = m_graph.NextMark();
  OdArray<int> postOrder;
  postOrder.reserve(static_cast<unsigned>(m_nodes.size()));
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
        if (CJbCustBlockGraphGrip::Of(it->second.element.get())) continue;
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

  const unsigned selected = m_graph.NextMark();
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
