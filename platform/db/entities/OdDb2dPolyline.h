// An old-style 2-D polyline: it owns its vertices (OdDb2dVertex, positions in its object
// coordinates) and the sequence end that closes their list. The vertices are filed with it in
// DWG; in DXF they follow it as VERTEX records and a SEQEND, which the file layer writes from
// vertexAt and sequenceEnd and hands back through appendVertex.
#pragma once

#include "platform/db/entities/ExtrudedEntity.h"
#include "platform/db/entities/VertexOwningPolyline.h"

class OdDb2dPolyline : public VertexOwningPolyline<ExtrudedEntity, OdDb2dVertex> {
  ODRX_DECLARE_MEMBERS(OdDb2dPolyline);

 public:
  enum PolyType {
    kSimplePoly = 0,
    kFitCurvePoly = 1,
    kQuadSplinePoly = 2,
    kCubicSplinePoly = 3,
  };

  OdDb2dPolyline();

  // The vertex in world coordinates.
  OdGePoint3d vertexPosition(unsigned int index) const;

  PolyType polyType() const;
  void setPolyType(PolyType type);
  double defaultStartWidth() const;
  void setDefaultStartWidth(double width);
  double defaultEndWidth() const;
  void setDefaultEndWidth(double width);
  double elevation() const;
  void setElevation(double elevation);

  // As the lightweight polyline: a mirror negates bulges; a non-uniform scale with bulges gives
  // eCannotScaleNonUniformly, and getTransformedCopy the exact spline instead.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  OdResult getTransformedCopy(const OdGeMatrix3d& matrix, OdDbEntityPtr& copy) const override;
  // Grip points, and so stretch points: the vertices, in world coordinates.
  OdResult subGetGripPoints(OdGePoint3dArray& points) const override;
  OdResult subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 private:
  bool hasBulges() const;
  void path(std::vector<OdGePoint2d>& points, std::vector<double>& bulges) const;

  PolyType m_type = kSimplePoly;
  bool m_plinegen = false;
  double m_defaultStartWidth = 0.0;
  double m_defaultEndWidth = 0.0;
  double m_elevation = 0.0;
};
using OdDb2dPolylinePtr = OdSmartPtr<OdDb2dPolyline>;
