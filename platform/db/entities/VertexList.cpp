// Vertex ownership and filing shared by the 2-D and 3-D polylines.
#include "platform/db/entities/VertexList.h"

#include <string>

#include "platform/db/filers/OdDbDwgFiler.h"

template <class Vertex>
VertexList<Vertex>::VertexList() : m_sequenceEnd(OdDbSequenceEnd::createObject()) {}

template <class Vertex>
void VertexList<Vertex>::append(const VertexPtr& vertex, const OdDbObject* owner) {
  if (vertex.isNull()) throw OdError(eNullPtr, owner->describe().str() + ": a null vertex");
  m_vertices.append(vertex);
}

template <class Vertex>
const typename VertexList<Vertex>::VertexPtr& VertexList<Vertex>::at(
    unsigned int index, const OdDbObject* owner) const {
  if (index >= m_vertices.length())
    throw OdError(eInvalidIndex, owner->describe().str() + ": no vertex " + std::to_string(index) +
                                     " of " + std::to_string(m_vertices.length()));
  return m_vertices[index];
}

template <class Vertex>
OdResult VertexList<Vertex>::dwgIn(OdDbDwgFiler* filer) {
  const int count = filer->rdInt32();
  if (count < 0) return eDwgObjectImproperlyRead;
  m_vertices.clear();
  for (int i = 0; i < count; ++i) {
    VertexPtr vertex = Vertex::createObject();
    const OdResult res = vertex->dwgInFields(filer);
    if (res != eOk) return res;
    m_vertices.append(vertex);
  }
  return m_sequenceEnd->dwgInFields(filer);
}

template <class Vertex>
void VertexList<Vertex>::dwgOut(OdDbDwgFiler* filer) const {
  filer->wrInt32(static_cast<int32_t>(m_vertices.length()));
  for (const VertexPtr& vertex : m_vertices)
    vertex->dwgOutFields(filer);
  m_sequenceEnd->dwgOutFields(filer);
}

template class VertexList<OdDb2dVertex>;
template class VertexList<OdDb3dPolylineVertex>;
