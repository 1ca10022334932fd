// A NURBS curve: degree, control points, optional weights, knots, and the fit points with end
// tangents it was made from when it was drawn through points.
#pragma once

#include "platform/db/OdDbEntity.h"

using OdGeDoubleArray = OdArray<double>;

class OdDbSpline : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbSpline);

 public:
  OdDbSpline() = default;

  // Replaces the curve and drops fit data. Needs degree >= 1, at least degree + 1 control points,
  // as many knots as points + degree + 1 (non-decreasing), and for a rational curve one positive
  // weight per point; otherwise eInvalidInput and nothing changes.
  void setNurbsData(int degree, bool rational, bool closed, bool periodic,
                    const OdGePoint3dArray& controlPoints, const OdGeDoubleArray& knots,
                    const OdGeDoubleArray& weights, double controlPtTol = 0.0,
                    double knotTol = 0.0);
  // Replaces the curve by the cubic through the fit points (chord-length parameters; a zero
  // tangent is estimated from the neighbouring point) and keeps the fit data. Fewer than two
  // distinct points raise eInvalidInput.
  void setFitData(const OdGePoint3dArray& fitPoints, const OdGeVector3d& startTangent,
                  const OdGeVector3d& endTangent, double fitTolerance = 0.0);
  bool hasFitData() const;
  void purgeFitData();

  int degree() const;
  bool isRational() const;
  bool isClosed() const;
  bool isPeriodic() const;
  int numControlPoints() const;
  // Point and fit-point accessors raise eInvalidIndex for an index past the end.
  OdGePoint3d controlPointAt(int index) const;
  // Moving a control point drops fit data, which would no longer describe the curve.
  void setControlPointAt(int index, const OdGePoint3d& point);
  double weightAt(int index) const;
  OdGeDoubleArray knots() const;
  int numFitPoints() const;
  OdGePoint3d fitPointAt(int index) const;
  // Moving a fit point refits the curve.
  void setFitPointAt(int index, const OdGePoint3d& point);
  OdGeVector3d startFitTangent() const;
  OdGeVector3d endFitTangent() const;
  double fitTolerance() const;
  // The plane normal of a planar spline, zero for one that is not planar.
  OdGeVector3d normal() const;
  void setNormal(const OdGeVector3d& normal);
  OdGePoint3d evaluate(double param) const;

  // Control points, fit points and tangents follow any non-singular transformation.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  // Stretch and grip points: the fit points when there is fit data (moving them refits the
  // curve), else the control points.
  OdResult getStretchPoints(OdGePoint3dArray& points) const override;
  OdResult moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  OdResult subGetGripPoints(OdGePoint3dArray& points) const override;
  OdResult subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  // The box of the curve sampled densely along every knot span.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 private:
  bool refit();
  bool isConsistent() const;

  int m_degree = 3;
  bool m_rational = false;
  bool m_closed = false;
  bool m_periodic = false;
  OdGePoint3dArray m_controlPoints;
  OdGeDoubleArray m_knots;
  OdGeDoubleArray m_weights;
  OdGePoint3dArray m_fitPoints;
  OdGeVector3d m_startTangent;
  OdGeVector3d m_endTangent;
  double m_knotTol = 0.0;
  double m_controlPtTol = 0.0;
  double m_fitTol = 0.0;
  OdGeVector3d m_normal;
};
using OdDbSplinePtr = OdSmartPtr<OdDbSpline>;
