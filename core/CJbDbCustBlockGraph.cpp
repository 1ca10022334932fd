// The evaluation graph of one customizable block definition.
#include "core/CJbDbCustBlockGraph.h"

#include <string>
#include <vector>

#include "core/CJbCustBlockElementImpl.h"
#include "core/CJbCustBlockGraphGrip.h"
#include "core/CJbCustBlockGraphParameter.h"
#include "core/CJbCustBlockGraphReactor.h"
#include "core/CJbCustBlockSettingsElement.h"
#include "core/CJbDbCustBlockAttributeFollower.h"
#include "core/CJbDbCustBlockGraphEvaluation.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "core/CJbDbCustBlockGraphFiling.h"
#include "core/CJbDbCustBlockGraphImpl.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "platform/db/OdDbAuditInfo.h"
#include "platform/db/OdDbWriteGuard.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbMemoryDwgFiler.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
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
  for (const auto& entry : m_pImpl->m_nodes) {
    const CJbCustBlockElement* node = entry.second.element.get();
    if (node->IsProxy() || CJbCustBlockGraphParameter::Is(node)) return false;
  }
  return true;
}

void CJbDbCustBlockGraph::Evaluate(const OdDbObjectId& blockRefId, bool modifyBlockReferences) {
  assertReadEnabled();
  CJbDbCustBlockGraphEvaluation(*m_pImpl).ForReference(blockRefId, modifyBlockReferences);
}

void CJbDbCustBlockGraph::EvaluateFromBlockDefinition(const OdDbObjectId& blockDefId,
                                                      bool ignoreBlockEntities) {
  assertReadEnabled();
  CJbDbCustBlockGraphEvaluation(*m_pImpl).ForDefinition(blockDefId, ignoreBlockEntities);
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

OdArray<int> CJbDbCustBlockGraph::GetCyclingOrder(bool onlyEnabled) const {
  assertReadEnabled();
  OdArray<int> order = m_pImpl->m_cyclingOrder;
  if (order.isEmpty()) {
    for (const auto& entry : m_pImpl->m_nodes) {
      if (CJbCustBlockGraphGrip::Of(entry.second.element.get())) order.append(entry.first);
    }
  }
  if (!onlyEnabled) return order;
  OdArray<int> enabled;
  for (int id : order) {
    const CJbCustBlockGraphGrip* grip = CJbCustBlockGraphGrip::Of(NodeAt(id));
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
    const CJbCustBlockGraphGrip* grip = CJbCustBlockGraphGrip::Of(NodeAt(id));
    if (!grip->GathersCyclingPoints()) continue;
    const OdGePoint3d point = grip->GetUpdatedPosition();
    bool known = false;
    for (const AlignmentPoint& kept : alignments)
      known = known || kept.point.isEqualTo(point);
    if (!known) alignments.push_back(AlignmentPoint{point, id, false});
  }

  OdArray<OdGePoint3d> points;
  for (int id : order) {
    const OdGePoint3d point = CJbCustBlockGraphGrip::Of(NodeAt(id))->GetUpdatedPosition();
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

void CJbDbCustBlockGraph::BeginUpdateAttributes(const OdDbObjectId& blockRefId,
                                                CJbDbCustBlockAttributeSnapshot*& snapshot) {
  snapshot = CJbDbCustBlockAttributeFollower::TakeSnapshot(blockRefId).release();
}

void CJbDbCustBlockGraph::UpdateAttributes(const OdDbObjectId& blockRefId,
                                           CJbDbCustBlockAttributeSnapshot* snapshot) {
  CJbDbCustBlockAttributeFollower::Follow(blockRefId, snapshot);
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

bool CJbDbCustBlockGraph::IsOlderVersion() const {
  assertReadEnabled();
  const CJbDbCustBlockGraphImpl& impl = *m_pImpl;
  return impl.m_majorVersion < CJbDbCustBlockGraphImpl::kCurrentMajorVersion ||
         (impl.m_majorVersion == CJbDbCustBlockGraphImpl::kCurrentMajorVersion &&
          impl.m_minorVersion < CJbDbCustBlockGraphImpl::kCurrentMinorVersion);
}

void CJbDbCustBlockGraph::UpgradeToCurrentVersion() {
  if (IsOlderVersion()) UpdateToCurrentVersion();
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
  const bool isGrip = CJbCustBlockGraphGrip::Of(NodeAt(id)) != nullptr;
  const bool listed = order.contains(id);
  if (isGrip && !listed) order.append(id);
  if (!isGrip && listed) order.remove(id);
}

OdString CJbDbCustBlockGraph::GetIdentifier() const {
  assertReadEnabled();
  return m_pImpl->Identifier();
}

namespace {
using Impl = CJbDbCustBlockGraphImpl;
using Filing = CJbDbCustBlockGraphFiling;

const char kVersionMarker[] = "VERSION";
}  // namespace

OdResult CJbDbCustBlockGraph::NodeDwgInFields(OdDbDwgFiler* filer) {
  return Filing::DwgInNodes(*this, filer);
}

OdResult CJbDbCustBlockGraph::NodeDxfInFields(OdDbDxfFiler* filer) {
  return Filing::DxfInNodes(*this, filer);
}

void CJbDbCustBlockGraph::NodeDwgOutFields(OdDbDwgFiler* filer) const {
  Filing::DwgOutNodes(*this, filer);
}

void CJbDbCustBlockGraph::NodeDxfOutFields(OdDbDxfFiler* filer) const {
  Filing::DxfOutNodes(*this, filer);
}

OdResult CJbDbCustBlockGraph::dwgInFields(OdDbDwgFiler* filer) {
  return Filing::DwgIn(*this, filer);
}

void CJbDbCustBlockGraph::dwgOutFields(OdDbDwgFiler* filer) const {
  Filing::DwgOut(*this, filer);
}

OdResult CJbDbCustBlockGraph::dxfInFields(OdDbDxfFiler* filer) {
  return Filing::DxfIn(*this, filer);
}

void CJbDbCustBlockGraph::dxfOutFields(OdDbDxfFiler* filer) const {
  Filing::DxfOut(*this, filer);
}

bool CJbDbCustBlockGraph::HasSettingsElement() const {
  const OdRxClass* settingsClass = CJbCustBlockSettingsElement::desc();
  for (const auto& entry : m_pImpl->m_nodes) {
    if (entry.second.element->isKindOf(settingsClass)) return true;
  }
  return false;
}

void CJbDbCustBlockGraph::UpdateToCurrentVersion() {
  CJbDbCustBlockGraphImpl& impl = *m_pImpl;
  if (Filing::IsCurrentVersion(impl.m_majorVersion, impl.m_minorVersion)) return;
  assertWriteEnabled();
  const bool orderInGraph = Filing::FilesOrderInGraph(impl.m_majorVersion, impl.m_minorVersion);
  // From now on the settings element files the order.
  if (orderInGraph && !impl.m_cyclingOrder.isEmpty() && !HasSettingsElement())
    AppendNode(CJbCustBlockSettingsElement::createObject());
  impl.m_majorVersion = Impl::kCurrentMajorVersion;
  impl.m_minorVersion = Impl::kCurrentMinorVersion;
  for (auto& entry : impl.m_nodes)
    entry.second.element->Impl()->m_proxyElement = CJbCustBlockElementPtr();
}

OdResBufPtr CJbDbCustBlockGraph::SaveInstance(CJbDbCustBlockGraphInstanceContext* context) const {
  assertReadEnabled();
  const CJbDbCustBlockGraphImpl& impl = *m_pImpl;
  OdResBufPtr head = OdResBuf::newRb(OdResBuf::kRtString, impl.Identifier());
  OdResBufPtr blockCount = head->setNext(OdResBuf::newRb(OdResBuf::kRtInt32, 0));
  if (context && context->IsComposingRequired()) {
    for (const auto& entry : impl.m_nodes)
      entry.second.element->DecomposeInstanceForSave();
  }
  OdResBuf* tail = blockCount.get();
  int blocks = 0;
  for (const auto& entry : impl.m_nodes) {
    OdResBufPtr items = entry.second.element->SaveInstance(context);
    if (items.isNull()) continue;
    int count = 1;
    OdResBuf* last = items.get();
    for (; !last->next().isNull(); last = last->next().get())
      ++count;
    tail = tail->setNext(OdResBuf::newRb(OdResBuf::kRtInt32, entry.first)).get();
    tail = tail->setNext(OdResBuf::newRb(OdResBuf::kRtInt32, count)).get();
    tail->setNext(items);
    tail = last;
    ++blocks;
  }
  blockCount->setInt32(blocks);
  tail = tail->setNext(OdResBuf::newRb(OdResBuf::kRtString, kVersionMarker)).get();
  tail->setNext(
      OdResBuf::newRb(OdResBuf::kRtInt32, impl.m_majorVersion * 100 + impl.m_minorVersion));
  return head;
}

namespace {
// Reads a 32-bit integer item and moves past it; false when the item is missing or of another
// type.
bool takeInt32(OdResBufPtr& cursor, int& value) {
  if (cursor.isNull() || cursor->restype() != OdResBuf::kRtInt32) return false;
  value = cursor->getInt32();
  cursor = cursor->next();
  return true;
}
}  // namespace

bool CJbDbCustBlockGraph::LoadInstance(OdResBufPtr chain,
                                       CJbDbCustBlockGraphInstanceContext* context) {
  assertReadEnabled();
  OdResBufPtr cursor = chain;
  // The saved identifier is not compared: a chain matches its graph by element ids alone.
  if (!cursor.isNull() && cursor->restype() == OdResBuf::kRtString) cursor = cursor->next();
  int blocks = 0;
  if (!takeInt32(cursor, blocks) || blocks < 0) return false;
  bool loaded = true;
  for (int block = 0; block < blocks; ++block) {
    int id = 0, count = 0;
    if (!takeInt32(cursor, id) || !takeInt32(cursor, count) || count < 0) return false;
    if (CJbCustBlockElementPtr node = NodeAt(id)) {
      OdResBufPtr items = cursor;
      try {
        loaded = node->LoadInstance(items, context) && loaded;
      } catch (const OdError&) {
        loaded = false;
      }
    }
    // The next block starts after this one's items, whatever the element took.
    for (int i = 0; i < count; ++i) {
      if (cursor.isNull()) return false;
      cursor = cursor->next();
    }
  }
  OdArray<int> ids;
  m_pImpl->AllNodeIds(ids);
  if (context && context->IsComposingRequired()) {
    for (int id : ids) {
      if (CJbCustBlockElementPtr node = NodeAt(id)) node->ComposeInstanceForLoad();
    }
  }
  if (!context || !context->IsForEvaluate()) {
    // Outside an evaluation, elements settle their derived state now.
    CJbDbCustBlockGraphEvaluationContextPtr settle(
        new CJbDbCustBlockGraphEvaluationContext(0, OdDbObjectId::kNull));
    for (int id : ids) {
      if (CJbCustBlockElementPtr node = NodeAt(id)) node->EndEvaluate(settle.get());
    }
  }
  return loaded;
}

namespace {
OdString idText(int id) {
  return OdString::format("%d", id);
}
}  // namespace

void CJbDbCustBlockGraph::AuditNodes(OdDbAuditInfo* auditInfo) {
  const bool fix = auditInfo->fixErrors();
  const OdString self = describe();
  // Nodes that cannot be kept: a null id, an id that is not the element's own, a second element
  // of a kind the graph holds once.
  OdArray<int> doomed;
  std::vector<const OdRxClass*> uniqueKinds;
  for (const auto& entry : m_pImpl->m_nodes) {
    const CJbCustBlockElement& node = *entry.second.element;
    const int elementId = node.Impl()->m_elementId;
    OdString problem;
    if (CJbCustBlockElement::IsNullId(entry.first))
      problem = "node with the null id";
    else if (elementId != entry.first)
      problem = "node " + idText(entry.first) + " holding element " + idText(elementId);
    if (problem.isEmpty() && node.IsUnique()) {
      for (const OdRxClass* kind : uniqueKinds) {
        if (node.isKindOf(kind)) problem = "second single-instance node " + idText(entry.first);
      }
      if (problem.isEmpty()) uniqueKinds.push_back(node.isA());
    }
    if (problem.isEmpty()) continue;
    auditInfo->errorsFound(1);
    auditInfo->printError(self, problem, "a node the graph can keep", "removed");
    doomed.append(entry.first);
  }
  if (fix && !doomed.isEmpty()) {
    OdDbWriteGuard writable(this);
    for (int id : doomed) {
      RemoveNode(id);
      auditInfo->errorsFixed(1);
    }
  }

  // Connections must name a node that lists this one on its other side.
  for (const auto& entry : m_pImpl->m_nodes) {
    CJbCustBlockElement& node = *entry.second.element;
    CJbCustBlockElementImpl& impl = *node.Impl();
    for (int side = 0; side < 2; ++side) {
      const bool incoming = side == 0;
      OdArray<int>& list = incoming ? impl.m_inConnections : impl.m_outConnections;
      OdArray<int> kept;
      for (int partnerId : list) {
        const CJbCustBlockElement* partner = NodeAt(partnerId);
        const OdArray<int>* back = nullptr;
        if (partner)
          back = incoming ? &partner->Impl()->m_outConnections : &partner->Impl()->m_inConnections;
        if (back && back->contains(entry.first)) {
          kept.append(partnerId);
          continue;
        }
        auditInfo->errorsFound(1);
        auditInfo->printError(self,
                              "element " + idText(entry.first) +
                                  (incoming ? " takes input from " : " feeds ") + idText(partnerId),
                              "a connection both elements list", "connection removed");
      }
      if (!fix || kept.length() == list.length()) continue;
      OdDbWriteGuard writable(this);
      auditInfo->errorsFixed(static_cast<int>(list.length() - kept.length()));
      node.AssertWriteEnabled();
      list = kept;
    }
  }
}

void CJbDbCustBlockGraph::AuditCyclingOrder(OdDbAuditInfo* auditInfo) {
  const OdArray<int>& order = m_pImpl->m_cyclingOrder;
  if (order.isEmpty()) return;
  const OdString self = describe();
  OdArray<int> repaired;
  int errors = 0;
  for (int id : order) {
    if (CJbCustBlockGraphGrip::Of(NodeAt(id)) && !repaired.contains(id)) {
      repaired.append(id);
      continue;
    }
    ++errors;
    auditInfo->printError(self, "cycling order entry " + idText(id), "a grip listed once",
                          "entry removed");
  }
  for (const auto& entry : m_pImpl->m_nodes) {
    if (!CJbCustBlockGraphGrip::Of(entry.second.element.get()) || repaired.contains(entry.first))
      continue;
    ++errors;
    repaired.append(entry.first);
    auditInfo->printError(self, "grip " + idText(entry.first) + " missing from the cycling order",
                          "every grip in the order", "appended");
  }
  // Only the settings element files the order; without one it would be lost.
  const bool settingsMissing =
      !HasSettingsElement() &&
      Filing::IsCurrentVersion(m_pImpl->m_majorVersion, m_pImpl->m_minorVersion);
  if (settingsMissing) {
    ++errors;
    auditInfo->printError(self, "cycling order without a settings element",
                          "a settings element that files the order", "settings element added");
  }
  auditInfo->errorsFound(errors);
  if (!auditInfo->fixErrors() || errors == 0) return;
  OdDbWriteGuard writable(this);
  if (settingsMissing) AppendNode(CJbCustBlockSettingsElement::createObject());
  m_pImpl->m_cyclingOrder = repaired;
  auditInfo->errorsFixed(errors);
}

void CJbDbCustBlockGraph::audit(OdDbAuditInfo* auditInfo) {
  OdDbObject::audit(auditInfo);
  for (const auto& entry : m_pImpl->m_nodes)
    entry.second.element->Audit(auditInfo);
  // A graph whose block definition is gone has nothing left to shape.
  const OdDbObjectId& blockId = m_pImpl->m_blockDefinitionId;
  if (isDBRO() && !blockId.isNull() &&
      (blockId.isErased() || !blockId.isValid() ||
       !OdDbBlockTableRecord::cast(blockId.openObject(OdDb::kForRead, true).get()))) {
    auditInfo->errorsFound(1);
    auditInfo->printError(describe(), "block definition " + blockId.getHandle().ascii(),
                          "a block definition in the drawing", "graph erased");
    if (auditInfo->fixErrors()) {
      OdDbWriteGuard writable(this);
      erase(true);
      auditInfo->errorsFixed(1);
    }
    return;
  }
  AuditNodes(auditInfo);
  AuditCyclingOrder(auditInfo);
}

void CJbDbCustBlockGraph::copyFrom(const OdRxObject* source) {
  OdRxObject::copyFrom(source);
  const auto* from = static_cast<const CJbDbCustBlockGraph*>(source);
  if (from == this) return;
  from->assertReadEnabled();
  assertWriteEnabled();
  // The object's own part goes through a copy filer, as for any object; the graph's part is
  // copied directly.
  OdDbMemoryDwgFiler filer;
  filer.setDatabase(from->database());
  filer.setFilerType(OdDb::kCopyFiler);
  from->OdDbObject::dwgOutFields(&filer);
  filer.seek(0, OdDb::kSeekFromStart);
  OdDbObject::dwgInFields(&filer);
  m_pImpl->CopyFrom(*from->m_pImpl, from, this);
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
