// A hatch: a fill pattern (or solid fill) bounded by loops in the plane of its normal. A loop is
// either a polyline (vertices with bulges) or a chain of edges: lines, circular arcs, elliptical
// arcs and splines, all in object coordinates at the hatch's elevation.
#pragma once

#include "platform/db/OdDbEntity.h"
#include "platform/ge/OdGePoint2d.h"

using OdGePoint2dArray = OdArray<OdGePoint2d>;

class OdDbHatch : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbHatch);

 public:
  enum HatchPatternType { kUserDefined = 0, kPreDefined = 1, kCustomDefined = 2 };
  enum HatchStyle { kNormal = 0, kOuter = 1, kIgnore = 2 };
  // Loop type bits as drawing files store them; kPolyline is set for polyline loops.
  enum HatchLoopType {
    kDefault = 0,
    kExternal = 1,
    kPolyline = 2,
    kDerived = 4,
    kTextbox = 8,
    kOutermost = 16,
  };
  enum EdgeType { kLine = 1, kCirArc = 2, kEllArc = 3, kSpline = 4 };

  // One boundary edge. Arcs and elliptical arcs run from start to end angle (parameter) in
  // their own direction: counter-clockwise when ccw, else clockwise; angles are geometric.
  struct Edge {
    EdgeType type = kLine;
    OdGePoint2d start;       // line
    OdGePoint2d end;         // line
    OdGePoint2d center;      // arcs
    double radius = 0.0;     // circular arc
    OdGeVector2d majorAxis;  // elliptical arc, from the centre
    double ratio = 1.0;      // elliptical arc, minor to major
    double startAngle = 0.0;
    double endAngle = 0.0;
    bool ccw = true;
    int degree = 3;  // spline
    bool rational = false;
    bool periodic = false;
    OdArray<double> knots;
    OdGePoint2dArray controlPoints;
    OdArray<double> weights;
    OdGePoint2dArray fitPoints;
    OdGeVector2d startTangent;
    OdGeVector2d endTangent;
  };

  // One boundary loop as the hatch keeps it: a polyline with a bulge per vertex, or edges.
  struct Loop {
    int type = kDefault;
    OdGePoint2dArray vertices;  // polyline loops
    OdArray<double> bulges;
    OdArray<Edge> edges;  // edge loops
  };

  OdDbHatch() = default;

  OdString patternName() const;
  HatchPatternType patternType() const;
  void setPattern(HatchPatternType type, const OdString& name);
  // The pattern "SOLID" fills.
  bool isSolidFill() const;
  bool associative() const;
  void setAssociative(bool associative);
  double patternAngle() const;
  void setPatternAngle(double angle);
  double patternScale() const;
  // A scale that is not positive raises eInvalidInput.
  void setPatternScale(double scale);
  HatchStyle hatchStyle() const;
  void setHatchStyle(HatchStyle style);
  double elevation() const;
  void setElevation(double elevation);
  OdGeVector3d normal() const;
  void setNormal(const OdGeVector3d& normal);

  int numLoops() const;
  // Loop accessors raise eInvalidIndex for an index past the end.
  int loopTypeAt(int index) const;
  bool isPolylineLoop(int index) const;
  // A polyline loop needs two or more vertices and one bulge per vertex (or none): otherwise
  // eInvalidInput.
  void appendLoop(int loopType, const OdGePoint2dArray& vertices, const OdArray<double>& bulges);
  // An edge loop needs one or more edges.
  void appendLoop(int loopType, const OdArray<Edge>& edges);
  void getLoopAt(int index, OdGePoint2dArray& vertices, OdArray<double>& bulges) const;
  OdArray<Edge> edgesAt(int index) const;
  void removeLoopAt(int index);
  OdGePoint2dArray seedPoints() const;
  void setSeedPoints(const OdGePoint2dArray& points);

  // Similarities move everything. A scale that differs within the plane is taken only by
  // boundaries of straight segments, elliptical arcs and splines; circular arcs and bulges give
  // eCannotScaleNonUniformly (from getTransformedCopy as well).
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  // Stretch points, per loop, a point shared by neighbouring edges listed once: polyline
  // vertices, line and circular-arc end points (a full circle: its centre), elliptical-arc
  // centres and spline control points. Moving a point moves every vertex and edge end of its loop
  // at that place; a circular arc with one end moved keeps its included angle; an elliptical arc
  // moves whole when its centre or both its ends move. Moving every point also moves the plane.
  OdResult getStretchPoints(OdGePoint3dArray& points) const override;
  OdResult moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  OdResult subGetGripPoints(OdGePoint3dArray& points) const override;
  OdResult subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  // The box of the boundary (exact for arcs, sampled for splines).
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 private:
  const Loop& loop(int index, const char* where) const;
  // The stretch points of one loop in object coordinates, in listing order.
  static void loopStretchPoints(const Loop& loop, OdGePoint2dArray& points);
  void mapLoops(const class PlanarTransform& plane);

  OdString m_patternName = "SOLID";
  HatchPatternType m_patternType = kPreDefined;
  bool m_associative = false;
  double m_patternAngle = 0.0;
  double m_patternScale = 1.0;
  HatchStyle m_style = kNormal;
  double m_elevation = 0.0;
  OdGeVector3d m_normal = OdGeVector3d::kZAxis;
  OdArray<Loop> m_loops;
  OdGePoint2dArray m_seeds;
};
using OdDbHatchPtr = OdSmartPtr<OdDbHatch>;
