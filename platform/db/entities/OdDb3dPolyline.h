// A 3-D polyline: it owns its vertices (OdDb3dPolylineVertex, world positions) and the sequence
// end that closes their list. The vertices are filed with it in DWG; in DXF they follow it as
// VERTEX records and a SEQEND, which the file layer writes from vertexAt and sequenceEnd and
// hands back through appendVertex.
#pragma once

#include "platform/db/OdDbEntity.h"
#include "platform/db/entities/VertexOwningPolyline.h"

class OdDb3dPolyline : public VertexOwningPolyline<OdDbEntity, OdDb3dPolylineVertex> {
  ODRX_DECLARE_MEMBERS(OdDb3dPolyline);

 public:
  enum PolyType {
    kSimplePoly = 0,
    kQuadSplinePoly = 1,
    kCubicSplinePoly = 2,
  };

  OdDb3dPolyline();

  PolyType polyType() const;
  void setPolyType(PolyType type);

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
  PolyType m_type = kSimplePoly;
};
using OdDb3dPolylinePtr = OdSmartPtr<OdDb3dPolyline>;
