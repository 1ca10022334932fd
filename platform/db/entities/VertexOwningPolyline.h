// What the 2-D and 3-D polylines share above their own base: the vertices they own with the
// sequence end that closes the list, and whether the path closes.
#pragma once

#include "platform/db/entities/VertexList.h"

template <class Base, class Vertex>
class VertexOwningPolyline : public Base {
 public:
  // Takes the vertex into the polyline; a null vertex raises eNullPtr.
  void appendVertex(const OdSmartPtr<Vertex>& vertex) {
    this->assertWriteEnabled();
    m_vertices.append(vertex, this);
  }
  unsigned int numVerts() const {
    this->assertReadEnabled();
    return m_vertices.length();
  }
  // An index past the end raises eInvalidIndex.
  OdSmartPtr<Vertex> vertexAt(unsigned int index) const {
    this->assertReadEnabled();
    return m_vertices.at(index, this);
  }
  OdDbSequenceEndPtr sequenceEnd() const {
    this->assertReadEnabled();
    return m_vertices.sequenceEnd();
  }
  bool isClosed() const {
    this->assertReadEnabled();
    return m_closed;
  }
  void setClosed(bool closed) {
    this->assertWriteEnabled();
    m_closed = closed;
  }

 protected:
  VertexList<Vertex> m_vertices;
  bool m_closed = false;
};
