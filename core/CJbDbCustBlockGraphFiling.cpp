// How a graph is filed.
#include "core/CJbDbCustBlockGraphFiling.h"

#include <new>

#include "core/CJbCustBlockElementImpl.h"
#include "core/CJbCustBlockProxyElement.h"
#include "core/CJbDbCustBlockGraph.h"
#include "core/CJbDbCustBlockGraphImpl.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/host/CJbCustBlockUtils.h"

namespace {
using Impl = CJbDbCustBlockGraphImpl;

// Makes the next DXF item current when it carries `code`; otherwise leaves it for the next read.
bool nextGroupIs(OdDbDxfFiler* filer, int code) {
  if (filer->nextItem() == code) return true;
  filer->pushBackItem();
  return false;
}

const char kSubclass[] = "JbDbCustBlockGraph";
}  // namespace

bool CJbDbCustBlockGraphFiling::IsCurrentVersion(int major, int minor) {
  return major == Impl::kCurrentMajorVersion && minor == Impl::kCurrentMinorVersion;
}

bool CJbDbCustBlockGraphFiling::FilesIdentifier(int major, int minor) {
  return major > 0 || minor >= 2;
}

bool CJbDbCustBlockGraphFiling::FilesOrderInGraph(int major, int minor) {
  return major == 0 && minor >= 3 && minor <= 5;
}

void CJbDbCustBlockGraphFiling::SetFiledVersion(Impl& impl, int major, int minor,
                                                OdDbDatabase* fileDatabase) {
  impl.m_majorVersion = major;
  impl.m_minorVersion = minor;
  const bool newer = major > Impl::kCurrentMajorVersion ||
                     (major == Impl::kCurrentMajorVersion && minor > Impl::kCurrentMinorVersion);
  if (newer && fileDatabase) CJbCustBlockUtils::Get()->SetNewerFormatFound(fileDatabase);
}

CJbCustBlockElementPtr CJbDbCustBlockGraphFiling::NodeFromProxy(
    CJbDbCustBlockGraph& graph, const CJbCustBlockElementPtr& proxy) {
  CJbCustBlockElementPtr element;
  try {
    element = static_cast<const CJbCustBlockProxyElement*>(proxy.get())->CreateElement(&graph);
  } catch (const OdError&) {
    // Data that its class cannot read back is kept as it was read, like an unknown class.
    element = CJbCustBlockElementPtr();
  }
  if (element.isNull()) return proxy;
  // Read at another version, the element is written back as it was read until the graph is
  // upgraded.
  const Impl& impl = *graph.m_pImpl;
  if (!IsCurrentVersion(impl.m_majorVersion, impl.m_minorVersion))
    element->Impl()->m_proxyElement = proxy;
  return element;
}

OdResult CJbDbCustBlockGraphFiling::InsertReadNode(CJbDbCustBlockGraph& graph,
                                                   const CJbCustBlockElementPtr& proxy) {
  const int id = static_cast<const CJbCustBlockElement*>(proxy.get())->Impl()->m_elementId;
  Impl::NodeMap& nodes = graph.m_pImpl->m_nodes;
  if (nodes.count(id) != 0) return eDuplicateKey;
  CJbCustBlockElementPtr node = NodeFromProxy(graph, proxy);
  node->SetGraph(&graph);
  nodes.emplace(id, Impl::Node{node});
  return eOk;
}

OdResult CJbDbCustBlockGraphFiling::DwgInNodes(CJbDbCustBlockGraph& graph, OdDbDwgFiler* filer) {
  const int count = filer->rdInt32();
  if (count < 0) return eDwgObjectImproperlyRead;
  for (int i = 0; i < count; ++i) {
    CJbCustBlockProxyElementPtr proxy(new CJbCustBlockProxyElement);
    OdResult result = proxy->dwgInFields(filer, &graph);
    if (result == eOk) result = InsertReadNode(graph, proxy);
    if (result != eOk) return result;
  }
  return eOk;
}

OdResult CJbDbCustBlockGraphFiling::DxfInNodes(CJbDbCustBlockGraph& graph, OdDbDxfFiler* filer) {
  if (!nextGroupIs(filer, 90)) return eBadDxfSequence;
  const int count = filer->rdInt32();
  if (count < 0) return eBadDxfSequence;
  for (int i = 0; i < count; ++i) {
    CJbCustBlockProxyElementPtr proxy(new CJbCustBlockProxyElement);
    OdResult result = proxy->dxfInFields(filer, &graph);
    if (result == eOk) result = InsertReadNode(graph, proxy);
    if (result != eOk) return result;
  }
  return eOk;
}

namespace {
// The form a node is filed in: itself when it is a proxy, the proxy it was read from while that
// is attached, else a proxy made from it now.
CJbCustBlockElementPtr filedForm(const CJbCustBlockElement* node,
                                 const CJbCustBlockElementPtr& attached,
                                 const CJbDbCustBlockGraph* graph) {
  if (node->IsProxy()) return CJbCustBlockElementPtr(const_cast<CJbCustBlockElement*>(node));
  if (!attached.isNull()) return attached;
  return CJbCustBlockProxyElement::CreateProxyFromElement(node, graph);
}
}  // namespace

void CJbDbCustBlockGraphFiling::DwgOutNodes(const CJbDbCustBlockGraph& graph, OdDbDwgFiler* filer) {
  filer->wrInt32(static_cast<int>(graph.m_pImpl->m_nodes.size()));
  for (const auto& entry : graph.m_pImpl->m_nodes) {
    const CJbCustBlockElement* node = entry.second.element.get();
    filedForm(node, node->Impl()->m_proxyElement, &graph)->dwgOutFields(filer, &graph);
  }
}

void CJbDbCustBlockGraphFiling::DxfOutNodes(const CJbDbCustBlockGraph& graph, OdDbDxfFiler* filer) {
  filer->wrInt32(90, static_cast<int>(graph.m_pImpl->m_nodes.size()));
  for (const auto& entry : graph.m_pImpl->m_nodes) {
    const CJbCustBlockElement* node = entry.second.element.get();
    filedForm(node, node->Impl()->m_proxyElement, &graph)->dxfOutFields(filer, &graph);
  }
}

namespace {
// Runs one read of the record: an error, thrown or returned, leaves the graph empty. Reading is no
// edit, so reactors hear nothing of it.
template <class Read>
OdResult readRecord(Impl& impl, Read read) {
  OdResult result = eOk;
  try {
    result = read();
  } catch (const OdError& error) {
    result = error.code();
  } catch (const std::bad_alloc&) {
    result = eOutOfMemory;
  }
  if (result != eOk) impl.ClearContents();
  impl.m_changeLog.clear();
  return result;
}
}  // namespace

OdResult CJbDbCustBlockGraphFiling::DwgIn(CJbDbCustBlockGraph& graph, OdDbDwgFiler* filer) {
  Impl& impl = *graph.m_pImpl;
  return readRecord(impl, [&]() {
    OdResult result = graph.OdDbObject::dwgInFields(filer);
    impl.ClearContents();
    if (result != eOk) return result;
    const int major = filer->rdInt32();
    const int minor = filer->rdInt32();
    SetFiledVersion(impl, major, minor,
                    filer->filerType() == OdDb::kFileFiler ? filer->database() : nullptr);
    const int lastId = filer->rdInt32();
    impl.m_lastId = lastId < 1 ? 1 : lastId;
    impl.m_blockDefinitionId = filer->rdSoftPointerId();
    result = graph.NodeDwgInFields(filer);
    if (result != eOk) return result;
    graph.Reset(OdDbObjectId::kNull, false);
    impl.m_identifier = FilesIdentifier(major, minor) ? filer->rdString() : OdString();
    if (FilesOrderInGraph(major, minor)) {
      const int count = filer->rdInt32();
      if (count < 0) return eDwgObjectImproperlyRead;
      for (int i = 0; i < count; ++i)
        impl.m_cyclingOrder.append(filer->rdInt32());
      graph.UpdateToCurrentVersion();
    }
    return eOk;
  });
}

void CJbDbCustBlockGraphFiling::DwgOut(const CJbDbCustBlockGraph& graph, OdDbDwgFiler* filer) {
  graph.OdDbObject::dwgOutFields(filer);
  const Impl& impl = *graph.m_pImpl;
  filer->wrInt32(impl.m_majorVersion);
  filer->wrInt32(impl.m_minorVersion);
  filer->wrInt32(impl.m_lastId);
  filer->wrSoftPointerId(impl.m_blockDefinitionId);
  graph.NodeDwgOutFields(filer);
  if (FilesIdentifier(impl.m_majorVersion, impl.m_minorVersion)) filer->wrString(impl.Identifier());
  if (FilesOrderInGraph(impl.m_majorVersion, impl.m_minorVersion)) {
    filer->wrInt32(static_cast<int>(impl.m_cyclingOrder.length()));
    for (int id : impl.m_cyclingOrder)
      filer->wrInt32(id);
  }
}

OdResult CJbDbCustBlockGraphFiling::DxfIn(CJbDbCustBlockGraph& graph, OdDbDxfFiler* filer) {
  Impl& impl = *graph.m_pImpl;
  return readRecord(impl, [&]() {
    const OdResult result = graph.OdDbObject::dxfInFields(filer);
    impl.ClearContents();
    if (result != eOk) return result;
    if (!filer->atSubclassData(kSubclass)) return eBadDxfSequence;
    int header[3] = {0, 0, 0};  // major, minor, last id
    for (int& value : header) {
      if (!nextGroupIs(filer, 90)) return eBadDxfSequence;
      value = filer->rdInt32();
    }
    const int major = header[0], minor = header[1];
    SetFiledVersion(impl, major, minor,
                    filer->filerType() == OdDb::kFileFiler ? filer->database() : nullptr);
    impl.m_lastId = header[2] < 1 ? 1 : header[2];
    if (!nextGroupIs(filer, 330)) return eBadDxfSequence;
    impl.m_blockDefinitionId = filer->rdObjectId();
    const OdResult nodes = graph.NodeDxfInFields(filer);
    if (nodes != eOk) return nodes;
    graph.Reset(OdDbObjectId::kNull, false);
    impl.m_identifier = OdString();
    if (FilesIdentifier(major, minor)) {
      if (!nextGroupIs(filer, 100)) return eBadDxfSequence;
      impl.m_identifier = filer->rdString();
    }
    // The DXF record has no cycling order; a graph of those versions is upgraded all the same.
    if (FilesOrderInGraph(major, minor)) graph.UpdateToCurrentVersion();
    return eOk;
  });
}

void CJbDbCustBlockGraphFiling::DxfOut(const CJbDbCustBlockGraph& graph, OdDbDxfFiler* filer) {
  graph.OdDbObject::dxfOutFields(filer);
  const Impl& impl = *graph.m_pImpl;
  filer->wrSubclassMarker(kSubclass);
  filer->wrInt32(90, impl.m_majorVersion);
  filer->wrInt32(90, impl.m_minorVersion);
  filer->wrInt32(90, impl.m_lastId);
  filer->wrSoftPointerId(330, impl.m_blockDefinitionId);
  graph.NodeDxfOutFields(filer);
  // The identifier travels under 100, where readers of this record expect it.
  if (FilesIdentifier(impl.m_majorVersion, impl.m_minorVersion))
    filer->wrString(100, impl.Identifier());
}
