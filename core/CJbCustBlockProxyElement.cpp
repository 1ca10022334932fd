// Stand-in for an element whose class is not available.
#include "core/CJbCustBlockProxyElement.h"

#include <algorithm>

#include <new>
#include <string>

#include "core/CJbCustBlockElementFiler.h"
#include "core/CJbCustBlockProxyElementImpl.h"
#include "core/CJbDbCustBlockGraph.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/rx/OdRxClass.h"
#include "platform/rx/OdRxClassDictionary.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockProxyElement, "JbCustBlockProxyElement",
                               CJbCustBlockElement)

namespace {
// Group codes of the four id lists in DXF, in list order.
const int kIdGroupCodes[4] = {350, 360, 330, 340};
// Binary chunks are written at most this long, as DXF readers expect.
const unsigned kChunkSize = 127;

using SuppressBaseFiling = CJbCustBlockElementImpl::BaseFilingSuppressor;
}  // namespace

CJbCustBlockProxyElement::CJbCustBlockProxyElement()
    : CJbCustBlockElement(new CJbCustBlockProxyElementImpl) {}

CJbCustBlockProxyElement::~CJbCustBlockProxyElement() = default;

CJbCustBlockProxyElementImpl* CJbCustBlockProxyElement::ProxyImpl() const {
  return static_cast<CJbCustBlockProxyElementImpl*>(Impl());
}

CJbCustBlockProxyElementPtr CJbCustBlockProxyElement::CreateProxyFromElement(
    const CJbCustBlockElement* element, const CJbDbCustBlockGraph* graph) {
  if (!element) throw OdError(eNullPtr, "CreateProxyFromElement: no element given");
  CJbCustBlockProxyElementPtr proxy(new CJbCustBlockProxyElement);
  CJbCustBlockProxyElementImpl& impl = *proxy->ProxyImpl();
  if (element->IsProxy()) {
    const auto& source = *static_cast<const CJbCustBlockProxyElement*>(element)->ProxyImpl();
    impl.CopyBaseFieldsFrom(source);
    impl.m_className = source.m_className;
    impl.m_data = source.m_data;
    for (int i = 0; i < 4; ++i)
      impl.m_ids[i] = source.m_ids[i];
    return proxy;
  }
  CJbCustBlockElementImpl& elementImpl = *element->Impl();
  impl.CopyBaseFieldsFrom(elementImpl);
  const OdRxClass* cls = element->isA();
  if (!cls) throw OdError(eNotInitializedYet, "CreateProxyFromElement: element class unregistered");
  impl.m_className = cls->name();
  CJbCustBlockElementFiler filer(graph ? graph->database() : nullptr);
  {
    SuppressBaseFiling suppress(elementImpl);
    element->dwgOutFields(&filer, graph);
  }
  impl.m_data = filer.GetData();
  for (int type = OdDb::kSoftPointerRef; type <= OdDb::kHardOwnershipRef; ++type) {
    const auto kind = static_cast<OdDb::ReferenceType>(type);
    impl.m_ids[CJbCustBlockElementFiler::ListIndex(kind)] = filer.GetIds(kind);
  }
  return proxy;
}

CJbCustBlockElementPtr CJbCustBlockProxyElement::CreateElement(CJbDbCustBlockGraph* graph) const {
  const CJbCustBlockProxyElementImpl& impl = *ProxyImpl();
  const OdRxClass* cls = OdRxClassDictionary::instance().getAt(impl.m_className);
  if (!cls) return CJbCustBlockElementPtr();
  if (!cls->isDerivedFrom(CJbCustBlockElement::desc()))
    throw OdError(eNotThatKindOfClass, "proxy element " + std::to_string(impl.m_elementId) +
                                           ": class " + impl.m_className.str() +
                                           " is not an element class");
  CJbCustBlockElementPtr element = CJbCustBlockElement::cast(cls->create().get());
  CJbCustBlockElementImpl& elementImpl = *element->Impl();
  elementImpl.CopyBaseFieldsFrom(impl);
  CJbCustBlockElementFiler filer(impl.m_data, impl.m_ids, graph ? graph->database() : nullptr);
  OdResult result = eOk;
  {
    SuppressBaseFiling suppress(elementImpl);
    result = element->dwgInFields(&filer, graph);
  }
  if (result != eOk)
    throw OdError(result, "proxy element " + std::to_string(impl.m_elementId) + ": the data of " +
                              impl.m_className.str() + " does not read back");
  return element;
}

const OdString& CJbCustBlockProxyElement::GetOriginalClassName() const {
  AssertReadEnabled();
  return ProxyImpl()->m_className;
}

const OdBinaryData& CJbCustBlockProxyElement::GetData() const {
  AssertReadEnabled();
  return ProxyImpl()->m_data;
}

const OdDbObjectIdArray& CJbCustBlockProxyElement::GetIds(OdDb::ReferenceType type) const {
  AssertReadEnabled();
  return ProxyImpl()->m_ids[CJbCustBlockElementFiler::ListIndex(type)];
}

bool CJbCustBlockProxyElement::IsProxy() const {
  return true;
}

namespace {
OdDbObjectId readListId(OdDbDwgFiler* filer, int list) {
  switch (list) {
    case 0:
      return filer->rdSoftOwnershipId();
    case 1:
      return filer->rdHardOwnershipId();
    case 2:
      return filer->rdSoftPointerId();
    default:
      return filer->rdHardPointerId();
  }
}

void writeListId(OdDbDwgFiler* filer, int list, const OdDbObjectId& id) {
  switch (list) {
    case 0:
      filer->wrSoftOwnershipId(id);
      break;
    case 1:
      filer->wrHardOwnershipId(id);
      break;
    case 2:
      filer->wrSoftPointerId(id);
      break;
    default:
      filer->wrHardPointerId(id);
      break;
  }
}
}  // namespace

OdResult CJbCustBlockProxyElement::dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) {
  const OdResult result = CJbCustBlockElement::dwgInFields(filer, graph);
  if (result != eOk) return result;
  CJbCustBlockProxyElementImpl& impl = *ProxyImpl();
  try {
    impl.m_className = filer->rdString();
    const int length = filer->rdInt32();
    if (length < 0) return eDwgObjectImproperlyRead;
    impl.m_data.clear();
    // In steps: a damaged length must fail at the end of the data, not allocate gigabytes first.
    constexpr int kStep = 1 << 16;
    for (int done = 0; done < length;) {
      const int step = std::min(length - done, kStep);
      const unsigned at = impl.m_data.length();
      impl.m_data.setLogicalLength(at + static_cast<unsigned>(step));
      filer->rdBytes(impl.m_data.asArrayPtr() + at, static_cast<std::uint32_t>(step));
      done += step;
    }
    for (int list = 0; list < 4; ++list) {
      const int count = filer->rdInt32();
      if (count < 0) return eDwgObjectImproperlyRead;
      impl.m_ids[list].clear();
      for (int i = 0; i < count; ++i)
        impl.m_ids[list].append(readListId(filer, list));
    }
  } catch (const OdError& error) {
    return error.code();
  } catch (const std::bad_alloc&) {
    return eOutOfMemory;
  }
  return eOk;
}

void CJbCustBlockProxyElement::dwgOutFields(OdDbDwgFiler* filer,
                                            const CJbDbCustBlockGraph* graph) const {
  CJbCustBlockElement::dwgOutFields(filer, graph);
  const CJbCustBlockProxyElementImpl& impl = *ProxyImpl();
  filer->wrString(impl.m_className);
  filer->wrInt32(static_cast<int>(impl.m_data.length()));
  filer->wrBytes(impl.m_data.asArrayPtr(), impl.m_data.length());
  for (int list = 0; list < 4; ++list) {
    filer->wrInt32(static_cast<int>(impl.m_ids[list].length()));
    for (const OdDbObjectId& id : impl.m_ids[list])
      writeListId(filer, list, id);
  }
}

OdResult CJbCustBlockProxyElement::dxfInFields(OdDbDxfFiler* filer, CJbDbCustBlockGraph* graph) {
  OdResult result = CJbCustBlockElement::dxfInFields(filer, graph);
  if (result != eOk) return result;
  CJbCustBlockProxyElementImpl& impl = *ProxyImpl();
  if (filer->nextItem() != 100) return eBadDxfSequence;
  impl.m_className = filer->rdString();
  if (filer->nextItem() != 90) return eBadDxfSequence;
  const int length = filer->rdInt32();
  if (length < 0) return eBadDxfSequence;
  impl.m_data.clear();
  while (impl.m_data.length() < static_cast<unsigned>(length)) {
    if (filer->nextItem() != 310) return eBadDxfSequence;
    const OdBinaryData chunk = filer->rdBinaryChunk();
    if (chunk.isEmpty() || impl.m_data.length() + chunk.length() > static_cast<unsigned>(length))
      return eBadDxfSequence;
    impl.m_data.append(chunk);
  }
  for (int list = 0; list < 4; ++list) {
    if (filer->nextItem() != 90) return eBadDxfSequence;
    const int count = filer->rdInt32();
    if (count < 0) return eBadDxfSequence;
    impl.m_ids[list].clear();
    for (int i = 0; i < count; ++i) {
      if (filer->nextItem() != kIdGroupCodes[list]) return eBadDxfSequence;
      impl.m_ids[list].append(filer->rdObjectId());
    }
  }
  return eOk;
}

void CJbCustBlockProxyElement::dxfOutFields(OdDbDxfFiler* filer,
                                            const CJbDbCustBlockGraph* graph) const {
  CJbCustBlockElement::dxfOutFields(filer, graph);
  const CJbCustBlockProxyElementImpl& impl = *ProxyImpl();
  filer->wrString(100, impl.m_className);
  filer->wrInt32(90, static_cast<int>(impl.m_data.length()));
  for (unsigned start = 0; start < impl.m_data.length(); start += kChunkSize) {
    const unsigned size = std::min(kChunkSize, impl.m_data.length() - start);
    filer->wrBinaryChunk(310, impl.m_data.asArrayPtr() + start, size);
  }
  for (int list = 0; list < 4; ++list) {
    filer->wrInt32(90, static_cast<int>(impl.m_ids[list].length()));
    for (const OdDbObjectId& id : impl.m_ids[list])
      filer->wrObjectId(kIdGroupCodes[list], id);
  }
}
