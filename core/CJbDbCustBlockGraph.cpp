// The evaluation graph of one customizable block definition.
#include "core/CJbDbCustBlockGraph.h"

#include <vector>

#include "core/CJbCustBlockCyclingGrip.h"
#include "core/CJbCustBlockElementClasses.h"
#include "core/CJbCustBlockElementImpl.h"
#include "core/CJbCustBlockGraphReactor.h"
#include "core/CJbCustBlockSettingsElement.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "core/CJbDbCustBlockGraphImpl.h"
#include "platform/rx/OdRxClass.h"

ODRX_DEFINE_MEMBERS_NAMED(CJbDbCustBlockGraph, "JbDbCustBlockGraph", OdDbObject,
                          odrx_detail::construct<CJbDbCustBlockGraph>, 25, 55, 1153,
                          "JB_BLOCK_GRAPH", "JBDBCB Classes")

CJbDbCustBlockGraph::CJbDbCustBlockGraph() : m_pImpl(new CJbDbCustBlockGraphImpl) {}

CJbDbCustBlockGraph::~CJbDbCustBlockGraph() {
  // Elements outliving the graph through other holders must not reach back into it.
  for (auto& entry : m_pImpl->m_nodes)
    entry.second.element->SetGraph(nullptr);
}

CJbCustBlockElement* CJbDbCustBlockGraph::NodeAt(int id) const {
  return m_pImpl->NodeAt(id);
}

bool CJbDbCustBlockGraph::HasNodeNamed(const OdString& name,
                                       const CJbCustBlockElement* except) const {
  for (const auto& entry : m_pImpl->m_nodes) {
    const CJbCustBlockElement* node = entry.second.element.get();
    if (node != except && node->GetName() == name) return true;
  }
  return false;
}

bool CJbDbCustBlockGraph::AppendNode(const CJbCustBlockElementPtr& element) {
  if (element.isNull()) return false;
  assertWriteEnabled();
  CJbCustBlockElementImpl& elementImpl = *element->Impl();
  const OdDbObjectId graphId = objectId();
  if ((!graphId.isNull() && element->GetBlockGraphId() == graphId) ||
      NodeAt(elementImpl.m_elementId) == element.get())
    return true;
  if (elementImpl.m_graph) {
    CJbDbCustBlockGraphPtr former = element->GetBlockGraph(OdDb::kForWrite);
    former->RemoveNode(elementImpl.m_elementId);
  }
  element->ValidateAndUpdateName(this);
  const int id = m_pImpl->AllocateId();
  element->SetElementId(id);
  element->SetGraph(this);
  m_pImpl->m_nodes[id].element = element;
  m_pImpl->Log(CJbDbCustBlockGraphImpl::kAppended, id);
  return true;
}

bool CJbDbCustBlockGraph::RemoveNode(int id) {
  auto it = m_pImpl->m_nodes.find(id);
  if (it == m_pImpl->m_nodes.end()) return false;
  assertWriteEnabled();
  const CJbCustBlockElementPtr element = it->second.element;
  element->OnRemoved();
  m_pImpl->m_nodes.erase(it);
  element->SetGraph(nullptr);
  m_pImpl->Log(CJbDbCustBlockGraphImpl::kRemoved, id);
  return true;
}

CJbCustBlockElementPtr CJbDbCustBlockGraph::GetNode(int id) const {
  assertReadEnabled();
  return CJbCustBlockElementPtr(NodeAt(id));
}

bool CJbDbCustBlockGraph::HasNode(int id) const {
  assertReadEnabled();
  return NodeAt(id) != nullptr;
}

OdArray<int> CJbDbCustBlockGraph::GetAllNodeIds() const {
  assertReadEnabled();
  OdArray<int> ids;
  m_pImpl->AllNodeIds(ids);
  return ids;
}

bool CJbDbCustBlockGraph::CanNodeBeAdded(OdRxClass* cls) const {
  if (!cls) return false;
  assertReadEnabled();
  for (const auto& entry : m_pImpl->m_nodes) {
    const CJbCustBlockElement& node = *entry.second.element;
    if (node.IsUnique() && cls->isDerivedFrom(node.isA())) return false;
  }
  return true;
}

bool CJbDbCustBlockGraph::IsEmpty() const {
  assertReadEnabled();
  const OdRxClass* parameterClass = CJbCustBlockElementClasses::ParameterClass();
  for (const auto& entry : m_pImpl->m_nodes) {
    const CJbCustBlockElement& node = *entry.second.element;
    if (node.IsProxy() || (parameterClass && node.isKindOf(parameterClass))) return false;
  }
  return true;
}

void CJbDbCustBlockGraph::RunPasses(const OdArray<int>& ids,
                                    CJbDbCustBlockGraphEvaluationContext* context,
                                    bool evaluateParameters) {
  // The elements are looked up once and held for the three passes.
  std::vector<CJbCustBlockElementPtr> elements;
  elements.reserve(ids.length());
  for (int id : ids) {
    if (CJbCustBlockElement* node = NodeAt(id)) elements.emplace_back(node);
  }
  const OdRxClass* parameterClass =
      evaluateParameters ? nullptr : CJbCustBlockElementClasses::ParameterClass();
  for (const auto& element : elements)
    element->BeginEvaluate(context);
  for (const auto& element : elements) {
    if (!parameterClass || !element->isKindOf(parameterClass)) element->Evaluate(context);
  }
  for (const auto& element : elements)
    element->EndEvaluate(context);
}

void CJbDbCustBlockGraph::Evaluate(const OdDbObjectId& blockRefId, bool modifyBlockReferences) {
  assertReadEnabled();
  const OdArray<int> work = m_pImpl->BuildWorkList();
  if (work.isEmpty()) return;
  const int mode =
      modifyBlockReferences ? CJbDbCustBlockGraphEvaluationContext::kModifyBlockReferences : 0;
  CJbDbCustBlockGraphEvaluationContextPtr context(
      new CJbDbCustBlockGraphEvaluationContext(mode, blockRefId));
  RunPasses(work, context.get(), true);
}

void CJbDbCustBlockGraph::EvaluateFromBlockDefinition(const OdDbObjectId& blockDefId,
                                                      bool ignoreBlockEntities) {
  assertReadEnabled();
  const int mode =
      ignoreBlockEntities ? CJbDbCustBlockGraphEvaluationContext::kIgnoreBlockEntities : 0;
  const OdArray<int> changed = m_pImpl->OrderForDefinition(m_pImpl->BuildWorkList());
  CJbDbCustBlockGraphEvaluationContextPtr first(new CJbDbCustBlockGraphEvaluationContext(
      mode | CJbDbCustBlockGraphEvaluationContext::kAfterBlockRedefine, blockDefId));
  RunPasses(changed, first.get(), false);

  OdArray<int> all;
  m_pImpl->AllNodeIds(all);
  CJbDbCustBlockGraphEvaluationContextPtr second(
      new CJbDbCustBlockGraphEvaluationContext(mode, blockDefId));
  RunPasses(m_pImpl->OrderForDefinition(all), second.get(), true);
}

void CJbDbCustBlockGraph::Reset(const OdDbObjectId& blockId, bool ignoreBlockEntities) {
  assertReadEnabled();
  CJbDbCustBlockGraphEvaluationContextPtr context(new CJbDbCustBlockGraphEvaluationContext(
      ignoreBlockEntities ? CJbDbCustBlockGraphEvaluationContext::kIgnoreBlockEntities : 0,
      blockId));
  OdArray<int> ids;
  m_pImpl->AllNodeIds(ids);
  for (int id : ids) {
    if (CJbCustBlockElementPtr node = NodeAt(id)) node->Reset(context.get());
  }
}

void CJbDbCustBlockGraph::Cleanup() {
  OdArray<int> ids;
  m_pImpl->AllNodeIds(ids);
  for (int id : ids) {
    if (CJbCustBlockElementPtr node = NodeAt(id)) node->Cleanup();
  }
}

namespace {
// The cycling view of a grip node, or null when the node is no grip that takes part in cycling.
const CJbCustBlockCyclingGrip* cyclingGrip(const CJbCustBlockElement* node) {
  if (!CJbCustBlockElementClasses::IsGrip(node)) return nullptr;
  return dynamic_cast<const CJbCustBlockCyclingGrip*>(node);
}
}  // namespace

OdArray<int> CJbDbCustBlockGraph::GetCyclingOrder(bool onlyEnabled) const {
  assertReadEnabled();
  OdArray<int> order = m_pImpl->m_cyclingOrder;
  if (order.isEmpty()) {
    for (const auto& entry : m_pImpl->m_nodes) {
      if (CJbCustBlockElementClasses::IsGrip(entry.second.element.get())) order.append(entry.first);
    }
  }
  if (!onlyEnabled) return order;
  OdArray<int> enabled;
  for (int id : order) {
    const CJbCustBlockCyclingGrip* grip = cyclingGrip(NodeAt(id));
    if (grip && grip->IsInsertionPointCyclingEnabled()) enabled.append(id);
  }
  return enabled;
}

void CJbDbCustBlockGraph::MoveCyclingOrder(unsigned from, unsigned to) {
  OdArray<int> order = GetCyclingOrder(false);
  const unsigned count = order.length();
  from = from < count ? from : count;
  to = to < count ? to : count;
  if (from == to) return;
  if (from == count)
    throw OdError(eInvalidIndex, "MoveCyclingOrder: no grip at position " + std::to_string(from) +
                                     " of a cycling order of " + std::to_string(count));
  if (to == count)
    throw OdError(eInvalidIndex, "MoveCyclingOrder: position " + std::to_string(to) +
                                     " is past the end of a cycling order of " +
                                     std::to_string(count));
  const int id = order[from];
  order.removeAt(from);
  order.insertAt(to, id);

  assertWriteEnabled();
  const OdRxClass* settingsClass = CJbCustBlockSettingsElement::desc();
  int settingsId = 0;
  for (const auto& entry : m_pImpl->m_nodes) {
    if (entry.second.element->isKindOf(settingsClass)) {
      settingsId = entry.first;
      break;
    }
  }
  if (CJbCustBlockElement::IsNullId(settingsId)) {
    CJbCustBlockElementPtr settings = CJbCustBlockSettingsElement::createObject();
    AppendNode(settings);
    settingsId = settings->Impl()->m_elementId;
  }
  m_pImpl->m_cyclingOrder = order;
  m_pImpl->Log(CJbDbCustBlockGraphImpl::kModified, settingsId);
}

OdArray<OdGePoint3d> CJbDbCustBlockGraph::GetCyclingPoints(OdArray<int>* ids) const {
  if (ids) ids->clear();
  const OdArray<int> order = GetCyclingOrder(true);
  struct AlignmentPoint {
    OdGePoint3d point;
    int id;
    bool placed;
  };
  std::vector<AlignmentPoint> alignments;
  for (int id : order) {
    const CJbCustBlockElement* node = NodeAt(id);
    if (!CJbCustBlockElementClasses::IsAlignmentGrip(node)) continue;
    const OdGePoint3d point = cyclingGrip(node)->GetUpdatedPosition();
    bool known = false;
    for (const AlignmentPoint& kept : alignments)
      known = known || kept.point.isEqualTo(point);
    if (!known) alignments.push_back(AlignmentPoint{point, id, false});
  }

  OdArray<OdGePoint3d> points;
  for (int id : order) {
    const OdGePoint3d point = cyclingGrip(NodeAt(id))->GetUpdatedPosition();
    AlignmentPoint* at = nullptr;
    for (AlignmentPoint& kept : alignments) {
      if (kept.point.isEqualTo(point)) {
        at = &kept;
        break;
      }
    }
    if (!at) {
      points.append(point);
      if (ids) ids->append(id);
    } else if (!at->placed) {
      at->placed = true;
      points.append(at->point);
      if (ids) ids->append(at->id);
    }
  }
  return points;
}

OdDbObjectId CJbDbCustBlockGraph::GetBlockDefinitionId() const {
  assertReadEnabled();
  return m_pImpl->m_blockDefinitionId;
}

void CJbDbCustBlockGraph::SetBlockDefinitionId(const OdDbObjectId& blockDefId) {
  if (m_pImpl->m_blockDefinitionId == blockDefId) return;
  assertWriteEnabled();
  m_pImpl->m_blockDefinitionId = blockDefId;
}

int CJbDbCustBlockGraph::GetMajorVersion() const {
  assertReadEnabled();
  return m_pImpl->m_majorVersion;
}

int CJbDbCustBlockGraph::GetMinorVersion() const {
  assertReadEnabled();
  return m_pImpl->m_minorVersion;
}

const OdArray<int>& CJbDbCustBlockGraph::StoredCyclingOrder() const {
  return m_pImpl->m_cyclingOrder;
}

void CJbDbCustBlockGraph::SetStoredCyclingOrder(const OdArray<int>& order) {
  m_pImpl->m_cyclingOrder = order;
}

void CJbDbCustBlockGraph::AssertNodeReadEnabled(const CJbCustBlockElement*) const {
  assertReadEnabled();
}

void CJbDbCustBlockGraph::AssertNodeWriteEnabled(const CJbCustBlockElement* element) {
  assertWriteEnabled();
  m_pImpl->Log(CJbDbCustBlockGraphImpl::kModified, element->Impl()->m_elementId);
}

void CJbDbCustBlockGraph::UpdateCyclingOrder(int id) {
  OdArray<int>& order = m_pImpl->m_cyclingOrder;
  if (order.isEmpty()) return;
  const bool isGrip = CJbCustBlockElementClasses::IsGrip(NodeAt(id));
  const bool listed = order.contains(id);
  if (isGrip && !listed) order.append(id);
  if (!isGrip && listed) order.remove(id);
}

void CJbDbCustBlockGraph::subClose() {
  OdDbObject::subClose();
  if (!isErased() && !isModified()) return;
  if (isModified()) {
    std::vector<CJbCustBlockGraphReactorPtr> reactors;
    for (OdDbObjectReactor* reactor : getTransientReactors()) {
      if (CJbCustBlockGraphReactorPtr graphReactor = CJbCustBlockGraphReactor::cast(reactor))
        reactors.push_back(graphReactor);
    }
    const OdArray<CJbDbCustBlockGraphImpl::ChangeRecord> log = m_pImpl->m_changeLog;
    for (const auto& record : log) {
      if (record.kind == CJbDbCustBlockGraphImpl::kRemoved) {
        for (const auto& reactor : reactors)
          reactor->OnElementRemoved(this, record.id);
      } else {
        // Changes of an element that has left the graph since are not reported.
        const CJbCustBlockElementPtr element = NodeAt(record.id);
        if (element.isNull()) continue;
        for (const auto& reactor : reactors) {
          if (record.kind == CJbDbCustBlockGraphImpl::kAppended)
            reactor->OnElementAppended(this, element.get());
          else
            reactor->OnElementModified(this, element.get());
        }
      }
      UpdateCyclingOrder(record.id);
    }
  }
  m_pImpl->m_changeLog.clear();
}
