// The vertices an old-style polyline owns and the sequence end that closes their list: access
// by index, and their DWG filing inside the polyline's own data.
#pragma once

#include "platform/base/OdArray.h"
#include "platform/db/entities/OdDb2dVertex.h"
#include "platform/db/entities/OdDb3dPolylineVertex.h"
#include "platform/db/entities/OdDbSequenceEnd.h"

class OdDbDwgFiler;

template <class Vertex>
class VertexList {
 public:
  using VertexPtr = OdSmartPtr<Vertex>;

  VertexList();

  // owner names the polyline in errors: eNullPtr for a null vertex, eInvalidIndex past the end.
  void append(const VertexPtr& vertex, const OdDbObject* owner);
  const VertexPtr& at(unsigned int index, const OdDbObject* owner) const;
  unsigned int length() const { return m_vertices.length(); }
  bool isEmpty() const { return m_vertices.isEmpty(); }
  typename OdArray<VertexPtr>::const_iterator begin() const { return m_vertices.begin(); }
  typename OdArray<VertexPtr>::const_iterator end() const { return m_vertices.end(); }
  const VertexPtr& operator[](unsigned int index) const { return m_vertices[index]; }
  const OdDbSequenceEndPtr& sequenceEnd() const { return m_sequenceEnd; }

  // The count, each vertex and the sequence end.
  OdResult dwgIn(OdDbDwgFiler* filer);
  void dwgOut(OdDbDwgFiler* filer) const;

 private:
  OdArray<VertexPtr> m_vertices;
  OdDbSequenceEndPtr m_sequenceEnd;
};

extern template class VertexList<OdDb2dVertex>;
extern template class VertexList<OdDb3dPolylineVertex>;
