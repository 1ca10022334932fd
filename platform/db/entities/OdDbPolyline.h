// A lightweight polyline: vertices in the plane of its normal at one elevation, each with the
// bulge of the segment it starts (tangent of a quarter of the arc's included angle, positive
// counter-clockwise) and the start and end widths of that segment.
#pragma once

#include "platform/db/entities/ExtrudedEntity.h"
#include "platform/ge/OdGePoint2d.h"

class OdDbPolyline : public ExtrudedEntity {
  ODRX_DECLARE_MEMBERS(OdDbPolyline);

 public:
  OdDbPolyline() = default;

  unsigned int numVerts() const;
  // Inserts before index (index numVerts() appends); an index past the end raises eInvalidIndex.
  void addVertexAt(unsigned int index, const OdGePoint2d& point, double bulge = 0.0,
                   double startWidth = 0.0, double endWidth = 0.0);
  void removeVertexAt(unsigned int index);
  // Vertex accessors raise eInvalidIndex for an index past the end.
  OdGePoint2d getPoint2dAt(unsigned int index) const;
  // The vertex in world coordinates.
  OdGePoint3d getPoint3dAt(unsigned int index) const;
  void setPointAt(unsigned int index, const OdGePoint2d& point);
  double getBulgeAt(unsigned int index) const;
  void setBulgeAt(unsigned int index, double bulge);
  void getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
  void setWidthsAt(unsigned int index, double startWidth, double endWidth);
  // True when every segment has one and the same width at both ends.
  bool hasConstantWidth() const;
  // The common width, or 0 when the widths differ.
  double getConstantWidth() const;
  void setConstantWidth(double width);
  bool isClosed() const;
  void setClosed(bool closed);
  bool hasBulges() const;
  double elevation() const;
  void setElevation(double elevation);

  // A mirror changes the sign of every bulge so arcs keep their shape. A scale that differs
  // within the plane bends arcs into elliptical ones, which a polyline cannot hold: with bulges
  // it gives eCannotScaleNonUniformly (without bulges the vertices simply follow, widths scaled
  // by the mean factor).
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  // For the non-uniform case with bulges: an exact rational spline of the transformed path
  // (widths are not kept).
  OdResult getTransformedCopy(const OdGeMatrix3d& matrix, OdDbEntityPtr& copy) const override;
  // Stretch and grip points: the vertices; moved vertices keep their bulges, so arc segments
  // keep their included angle.
  OdResult getStretchPoints(OdGePoint3dArray& points) const override;
  OdResult moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  OdResult subGetGripPoints(OdGePoint3dArray& points) const override;
  OdResult subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  // The exact box of the centre line, arc segments included.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 private:
  struct Vertex {
    OdGePoint2d point;
    double bulge = 0.0;
    double startWidth = 0.0;
    double endWidth = 0.0;
  };
  const Vertex& vertex(unsigned int index, const char* where) const;

  OdArray<Vertex> m_vertices;
  bool m_closed = false;
  bool m_plinegen = false;
  double m_elevation = 0.0;
};
using OdDbPolylinePtr = OdSmartPtr<OdDbPolyline>;
