// The data of an evaluation graph and the algorithms over it.
#include "core/CJbDbCustBlockGraphImpl.h"

#include <cstdint>
#include <string>

#include <QUuid>

#include "core/CJbCustBlockElementFiler.h"
#include "core/CJbCustBlockElementImpl.h"
#include "core/CJbCustBlockProxyElement.h"
#include "core/CJbDbCustBlockGraph.h"
#include "platform/host/OdQStringConversion.h"
#include "platform/rx/OdRxClass.h"

CJbCustBlockElement* CJbDbCustBlockGraphImpl::NodeAt(int id) const {
  auto it = m_nodes.find(id);
  return it == m_nodes.end() ? nullptr : it->second.element.get();
}

void CJbDbCustBlockGraphImpl::AllNodeIds(OdArray<int>& ids) const {
  ids.reserve(ids.length() + static_cast<unsigned>(m_nodes.size()));
  for (const auto& entry : m_nodes)
    ids.append(entry.first);
}

void CJbDbCustBlockGraphImpl::ClearContents() {
  for (auto& entry : m_nodes)
    entry.second.element->SetGraph(nullptr);
  m_nodes.clear();
  m_cyclingOrder.clear();
  m_changeLog.clear();
  m_lastId = 0;
  m_blockDefinitionId = OdDbObjectId::kNull;
  m_majorVersion = kCurrentMajorVersion;
  m_minorVersion = kCurrentMinorVersion;
}

const OdString& CJbDbCustBlockGraphImpl::Identifier() const {
  if (m_identifier.isEmpty()) m_identifier = fromQString(QUuid::createUuid().toString());
  return m_identifier;
}

CJbCustBlockElementPtr CJbDbCustBlockGraphImpl::CopyNode(const CJbCustBlockElement* element,
                                                         const CJbDbCustBlockGraph* sourceGraph,
                                                         CJbDbCustBlockGraph* owner) {
  if (element->IsProxy())
    return CJbCustBlockProxyElement::CreateProxyFromElement(element, sourceGraph);
  CJbCustBlockElementImpl& source = *element->Impl();
  CJbCustBlockElementPtr copy = CJbCustBlockElement::cast(element->isA()->create().get());
  CJbCustBlockElementImpl& target = *copy->Impl();
  target.CopyBaseFieldsFrom(source);
  if (!source.m_proxyElement.isNull())
    target.m_proxyElement =
        CJbCustBlockProxyElement::CreateProxyFromElement(source.m_proxyElement.get(), sourceGraph);

  OdDbDatabase* database = sourceGraph->database();
  CJbCustBlockElementFiler out(database);
  {
    CJbCustBlockElementImpl::BaseFilingSuppressor suppress(source);
    element->dwgOutFields(&out, sourceGraph);
  }
  OdDbObjectIdArray ids[4];
  for (int type = OdDb::kSoftPointerRef; type <= OdDb::kHardOwnershipRef; ++type) {
    const auto kind = static_cast<OdDb::ReferenceType>(type);
    const OdDbObjectIdArray& filed = out.GetIds(kind);
    OdDbObjectIdArray& list = ids[CJbCustBlockElementFiler::ListIndex(kind)];
    if (kind == OdDb::kSoftOwnershipRef || kind == OdDb::kHardOwnershipRef)
      list.resize(filed.length(), OdDbObjectId::kNull);
    else
      list = filed;
  }
  CJbCustBlockElementFiler in(out.GetData(), ids, database);
  OdResult result = eOk;
  {
    CJbCustBlockElementImpl::BaseFilingSuppressor suppress(target);
    result = copy->dwgInFields(&in, owner);
  }
  if (result != eOk)
    throw OdError(result, "graph copy: the data of element " + std::to_string(source.m_elementId) +
                              " (" + element->isA()->name().str() + ") does not read back");
  return copy;
}

void CJbDbCustBlockGraphImpl::CopyFrom(const CJbDbCustBlockGraphImpl& source,
                                       const CJbDbCustBlockGraph* sourceGraph,
                                       CJbDbCustBlockGraph* owner) {
  ClearContents();
  m_cyclingOrder = source.m_cyclingOrder;
  m_lastId = source.m_lastId;
  m_blockDefinitionId = source.m_blockDefinitionId;
  m_majorVersion = source.m_majorVersion;
  m_minorVersion = source.m_minorVersion;
  m_identifier = source.Identifier();
  // The source's ids and names are unique already: nodes go straight into the map, in order.
  for (const auto& entry : source.m_nodes) {
    CJbCustBlockElementPtr copy = CopyNode(entry.second.element.get(), sourceGraph, owner);
    copy->SetGraph(owner);
    m_nodes.emplace_hint(m_nodes.end(), entry.first, Node{copy});
  }
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
