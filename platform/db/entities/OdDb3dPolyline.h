// A 3-D polyline: it owns its vertices (OdDb3dPolylineVertex, world positions) and the sequence
// end that closes their list. The vertices are filed with it in DWG; in DXF they follow it as
// VERTEX records and a SEQEND, which the file layer writes from vertexAt and sequenceEnd and
// hands back through appendVertex.
#pragma once

#include "platform/db/OdDbEntity.h"
#include "platform/db/entities/VertexList.h"

class OdDb3dPolyline : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDb3dPolyline);

 public:
  enum PolyType {
    kSimplePoly = 0,
    kQuadSplinePoly = 1,
    kCubicSplinePoly = 2,
  };

  OdDb3dPolyline();

  // Takes the vertex into the polyline; a null vertex raises eNullPtr.
  void appendVertex(const OdDb3dPolylineVertexPtr& vertex);
  unsigned int numVerts() const;
  // An index past the end raises eInvalidIndex.
  OdDb3dPolylineVertexPtr vertexAt(unsigned int index) const;
  OdDbSequenceEndPtr sequenceEnd() const;
  PolyType polyType() const;
  void setPolyType(PolyType type);
  bool isClosed() const;
  void setClosed(bool closed);

  // Any non-singular transformation: the vertices follow it.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  // Grip points, and so stretch points: the vertices.
  OdResult subGetGripPoints(OdGePoint3dArray& points) const override;
  OdResult subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 private:
  VertexList<OdDb3dPolylineVertex> m_vertices;
  PolyType m_type = kSimplePoly;
  bool m_closed = false;
};
using OdDb3dPolylinePtr = OdSmartPtr<OdDb3dPolyline>;
