// Base of every element of a customizable block.
#include "core/CJbCustBlockElement.h"

#include "core/CJbCustBlockElementImpl.h"
#include "core/CJbDbCustBlockGraph.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockElement, "JbCustBlockElement", OdRxObject)

CJbCustBlockElement::CJbCustBlockElement() : CJbCustBlockElement(new CJbCustBlockElementImpl) {}

CJbCustBlockElement::CJbCustBlockElement(CJbCustBlockElementImpl* impl) : m_pImpl(impl) {}

CJbCustBlockElement::~CJbCustBlockElement() = default;

OdString CJbCustBlockElement::GetBaseName() const {
  return odTranslate("custblock_element", "Element");
}

bool CJbCustBlockElement::BeginEvaluate(CJbDbCustBlockGraphEvaluationContext*) {
  return true;
}

bool CJbCustBlockElement::Evaluate(CJbDbCustBlockGraphEvaluationContext*) {
  return true;
}

bool CJbCustBlockElement::EndEvaluate(CJbDbCustBlockGraphEvaluationContext*) {
  return true;
}

bool CJbCustBlockElement::Reset(CJbDbCustBlockGraphEvaluationContext*) {
  return true;
}

bool CJbCustBlockElement::Transform(const OdGeMatrix3d&, bool) {
  return true;
}

bool CJbCustBlockElement::StretchPoints(const OdArray<int>&, const OdGeVector3d&, bool) {
  return true;
}

OdArray<OdGePoint3d> CJbCustBlockElement::GetStretchPoints() const {
  return OdArray<OdGePoint3d>();
}

void CJbCustBlockElement::ComposeInstanceForLoad() {}

void CJbCustBlockElement::DecomposeInstanceForSave() {}

bool CJbCustBlockElement::LoadInstance(OdResBufPtr& cursor, CJbDbCustBlockGraphInstanceContext*) {
  if (cursor.isNull() || cursor->restype() != OdResBuf::kDxfBool) return false;
  AssertReadEnabled();
  m_pImpl->m_visible = cursor->getBool();
  cursor = cursor->next();
  return true;
}

OdResBufPtr CJbCustBlockElement::SaveInstance(CJbDbCustBlockGraphInstanceContext*) {
  AssertReadEnabled();
  return OdResBuf::newRb(OdResBuf::kDxfBool, m_pImpl->m_visible);
}

bool CJbCustBlockElement::IsConnectionSuppressed(int) const {
  return false;
}

bool CJbCustBlockElement::NeedEvaluate() const {
  return false;
}

bool CJbCustBlockElement::IsValid() const {
  return false;
}

bool CJbCustBlockElement::IsUnique() const {
  return false;
}

bool CJbCustBlockElement::IsVisible() const {
  AssertReadEnabled();
  return IsAlwaysVisible() || m_pImpl->m_visible;
}

bool CJbCustBlockElement::IsAlwaysVisible() const {
  return false;
}

const OdString& CJbCustBlockElement::GetName() const {
  AssertReadEnabled();
  return m_pImpl->m_name;
}

void CJbCustBlockElement::SetName(const OdString& name) {
  if (m_pImpl->m_name == name) return;
  AssertWriteEnabled();
  m_pImpl->m_name = name;
}

void CJbCustBlockElement::ValidateAndUpdateName(const CJbDbCustBlockGraph* graph) {
  if (!ValidateName(GetName(), graph, this)) SetName(GenerateName(graph));
}

bool CJbCustBlockElement::IsProxy() const {
  return false;
}

CJbCustBlockElement::Priority CJbCustBlockElement::GetPriority() const {
  return kPriorityNormal;
}

namespace {
void readIds(OdDbDwgFiler* filer, OdArray<int>& ids) {
  ids.clear();
  const int count = filer->rdInt32();
  if (count < 0) throw OdError(eDwgObjectImproperlyRead, "negative element connection count");
  for (int i = 0; i < count; ++i)
    ids.append(filer->rdInt32());
}

void writeIds(OdDbDwgFiler* filer, const OdArray<int>& ids) {
  filer->wrInt32(static_cast<int>(ids.length()));
  for (int id : ids)
    filer->wrInt32(id);
}

// Reads the value of the next group, which must carry `code`.
bool expectGroup(OdDbDxfFiler* filer, int code) {
  if (filer->nextItem() == code) return true;
  filer->pushBackItem();
  return false;
}

OdResult readDxfIds(OdDbDxfFiler* filer, OdArray<int>& ids) {
  ids.clear();
  if (!expectGroup(filer, 90)) return eBadDxfSequence;
  const int count = filer->rdInt32();
  if (count < 0) return eBadDxfSequence;
  for (int i = 0; i < count; ++i) {
    if (!expectGroup(filer, 90)) return eBadDxfSequence;
    ids.append(filer->rdInt32());
  }
  return eOk;
}

void writeDxfIds(OdDbDxfFiler* filer, const OdArray<int>& ids) {
  filer->wrInt32(90, static_cast<int>(ids.length()));
  for (int id : ids)
    filer->wrInt32(90, id);
}
}  // namespace

OdResult CJbCustBlockElement::dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph*) {
  CJbCustBlockElementImpl& impl = *m_pImpl;
  if (impl.m_suppressBaseFiling) return eOk;
  try {
    impl.m_elementId = filer->rdInt32();
    impl.m_visible = filer->rdBool();
    impl.m_name = filer->rdString();
    readIds(filer, impl.m_inConnections);
    readIds(filer, impl.m_outConnections);
  } catch (const OdError& error) {
    return error.code();
  }
  return eOk;
}

void CJbCustBlockElement::dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph*) const {
  const CJbCustBlockElementImpl& impl = *m_pImpl;
  if (impl.m_suppressBaseFiling) return;
  filer->wrInt32(impl.m_elementId);
  filer->wrBool(impl.m_visible);
  filer->wrString(impl.m_name);
  writeIds(filer, impl.m_inConnections);
  writeIds(filer, impl.m_outConnections);
}

OdResult CJbCustBlockElement::dxfInFields(OdDbDxfFiler* filer, CJbDbCustBlockGraph*) {
  CJbCustBlockElementImpl& impl = *m_pImpl;
  if (impl.m_suppressBaseFiling) return eOk;
  if (!expectGroup(filer, 90)) return eBadDxfSequence;
  impl.m_elementId = filer->rdInt32();
  if (!expectGroup(filer, 290)) return eBadDxfSequence;
  impl.m_visible = filer->rdBool();
  // The name travels under 100, which readers of this record expect.
  if (!expectGroup(filer, 100)) return eBadDxfSequence;
  impl.m_name = filer->rdString();
  OdResult result = readDxfIds(filer, impl.m_inConnections);
  if (result != eOk) return result;
  return readDxfIds(filer, impl.m_outConnections);
}

void CJbCustBlockElement::dxfOutFields(OdDbDxfFiler* filer, const CJbDbCustBlockGraph*) const {
  const CJbCustBlockElementImpl& impl = *m_pImpl;
  if (impl.m_suppressBaseFiling) return;
  filer->wrInt32(90, impl.m_elementId);
  filer->wrBool(290, impl.m_visible);
  filer->wrString(100, impl.m_name);
  writeDxfIds(filer, impl.m_inConnections);
  writeDxfIds(filer, impl.m_outConnections);
}

void CJbCustBlockElement::Audit(OdDbAuditInfo*) {}

void CJbCustBlockElement::Cleanup() {}

void CJbCustBlockElement::OnRemoved() {
  const CJbCustBlockElementImpl& impl = *m_pImpl;
  OdArray<int> partners = impl.m_inConnections;
  partners.append(impl.m_outConnections);
  for (int partnerId : partners) {
    m_pImpl->OnConnectionRemoved(partnerId);
    CJbCustBlockElement* partner = impl.m_graph ? impl.m_graph->NodeAt(partnerId) : nullptr;
    if (partner) partner->OnElementRemoved(impl.m_elementId);
  }
}

int CJbCustBlockElement::GetElementId() const {
  AssertReadEnabled();
  return m_pImpl->m_elementId;
}

void CJbCustBlockElement::SetElementId(int id) {
  m_pImpl->m_elementId = id;
}

OdSmartPtr<CJbDbCustBlockGraph> CJbCustBlockElement::GetBlockGraph(OdDb::OpenMode mode) const {
  CJbDbCustBlockGraph* graph = m_pImpl->m_graph;
  if (!graph) return OdSmartPtr<CJbDbCustBlockGraph>();
  const OdDbObjectId graphId = graph->objectId();
  if (graphId.isNull()) return OdSmartPtr<CJbDbCustBlockGraph>(graph);
  return CJbDbCustBlockGraph::cast(graphId.openObject(mode).get());
}

OdDbObjectId CJbCustBlockElement::GetBlockGraphId() const {
  return m_pImpl->m_graph ? m_pImpl->m_graph->objectId() : OdDbObjectId::kNull;
}

CJbDbCustBlockGraph* CJbCustBlockElement::GetGraph() const {
  return m_pImpl->m_graph;
}

void CJbCustBlockElement::SetGraph(CJbDbCustBlockGraph* graph) {
  m_pImpl->m_graph = graph;
}

void CJbCustBlockElement::AddConnection(int id, bool in, bool out) {
  CJbCustBlockElementImpl& impl = *m_pImpl;
  CJbCustBlockElement* partner = IsNullId(id) || !impl.m_graph ? nullptr : impl.m_graph->NodeAt(id);
  if (!partner || (!in && !out)) return;
  AssertWriteEnabled();
  partner->AssertWriteEnabled();
  if (in) {
    impl.m_inConnections.append(id);
    partner->m_pImpl->m_outConnections.append(impl.m_elementId);
  }
  if (out) {
    impl.m_outConnections.append(id);
    partner->m_pImpl->m_inConnections.append(impl.m_elementId);
  }
}

void CJbCustBlockElement::RemoveConnection(int id, bool in, bool out) {
  CJbCustBlockElementImpl& impl = *m_pImpl;
  if (IsNullId(id) || !impl.m_graph || (!in && !out)) return;
  AssertWriteEnabled();
  CJbCustBlockElement* partner = impl.m_graph->NodeAt(id);
  if (partner) partner->AssertWriteEnabled();
  if (in) {
    impl.m_inConnections.remove(id);
    if (partner) partner->m_pImpl->m_outConnections.remove(impl.m_elementId);
  }
  if (out) {
    impl.m_outConnections.remove(id);
    if (partner) partner->m_pImpl->m_inConnections.remove(impl.m_elementId);
  }
}

bool CJbCustBlockElement::HasConnection(int id, bool in, bool out) const {
  AssertReadEnabled();
  return (in && m_pImpl->m_inConnections.contains(id)) ||
         (out && m_pImpl->m_outConnections.contains(id));
}

void CJbCustBlockElement::GetConnections(OdArray<int>& ids, bool in, bool out) const {
  AssertReadEnabled();
  if (in) ids.append(m_pImpl->m_inConnections);
  if (out) ids.append(m_pImpl->m_outConnections);
}

void CJbCustBlockElement::SetVisible(bool visible) {
  if (m_pImpl->m_visible == visible) return;
  AssertWriteEnabled();
  m_pImpl->m_visible = visible;
}

OdSmartPtr<CJbCustBlockElement> CJbCustBlockElement::GetProxyElement() const {
  AssertReadEnabled();
  return m_pImpl->m_proxyElement;
}

void CJbCustBlockElement::SetProxyElement(const OdSmartPtr<CJbCustBlockElement>& proxy) {
  if (m_pImpl->m_proxyElement == proxy) return;
  AssertWriteEnabled();
  m_pImpl->m_proxyElement = proxy;
}

OdString CJbCustBlockElement::GenerateName(const CJbDbCustBlockGraph* graph) const {
  if (!graph) return OdString();
  const OdString base = GetBaseName();
  for (int counter = 1;; ++counter) {
    OdString candidate = base + OdString::format("%d", counter);
    if (ValidateName(candidate, graph, nullptr)) return candidate;
  }
}

namespace {
OdSmartPtr<CJbDbCustBlockGraph> openGraph(const OdDbObjectId& graphId) {
  if (graphId.isNull()) return OdSmartPtr<CJbDbCustBlockGraph>();
  return CJbDbCustBlockGraph::cast(graphId.openObject(OdDb::kForRead).get());
}
}  // namespace

OdString CJbCustBlockElement::GenerateName(const OdDbObjectId& graphId) const {
  return GenerateName(openGraph(graphId).get());
}

bool CJbCustBlockElement::ValidateName(const OdString& name, const CJbDbCustBlockGraph* graph,
                                       CJbCustBlockElement* self) {
  if (name.isEmpty()) return false;
  if (!graph) return true;
  return !graph->HasNodeNamed(name, self);
}

bool CJbCustBlockElement::ValidateName(const OdString& name, const OdDbObjectId& graphId,
                                       CJbCustBlockElement* self) {
  return ValidateName(name, openGraph(graphId).get(), self);
}

void CJbCustBlockElement::ValidateAndUpdateName(const OdDbObjectId& graphId) {
  ValidateAndUpdateName(openGraph(graphId).get());
}

void CJbCustBlockElement::AssertReadEnabled() const {
  if (m_pImpl->m_graph) m_pImpl->m_graph->AssertNodeReadEnabled(this);
}

void CJbCustBlockElement::AssertWriteEnabled() const {
  if (m_pImpl->m_graph) m_pImpl->m_graph->AssertNodeWriteEnabled(this);
}

void CJbCustBlockElement::OnElementRemoved(int id) {
  m_pImpl->OnConnectionRemoved(id);
}
