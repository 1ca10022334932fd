// A (possibly rational) B-spline curve in space: evaluation, interpolation through fit points and
// the exact conversion of a bulged polyline path, for splines and for polylines that a
// non-uniform scale turns into splines.
#pragma once

#include <vector>

#include "platform/ge/OdGeExtents3d.h"
#include "platform/ge/OdGePoint2d.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeVector3d.h"

class NurbsCurve {
 public:
  NurbsCurve() = default;
  // weights empty for a non-rational curve; otherwise one per control point.
  NurbsCurve(int degree, std::vector<double> knots, std::vector<OdGePoint3d> controlPoints,
             std::vector<double> weights);

  int degree() const { return m_degree; }
  const std::vector<double>& knots() const { return m_knots; }
  const std::vector<OdGePoint3d>& controlPoints() const { return m_points; }
  const std::vector<double>& weights() const { return m_weights; }
  // True when degree, knot count, control points and weights are consistent and the knots do
  // not decrease.
  bool isValid() const;

  // The point at param, clamped to the knot range. Requires isValid().
  OdGePoint3d evaluate(double param) const;
  // The box of points sampled densely along every knot span (the curve lies within its control
  // points' box; this is the tighter box of the curve itself).
  void addToExtents(OdGeExtents3d& extents) const;

  // The cubic (lower degree for fewer points) through the fit points, parameterised by chord
  // length. A zero tangent is estimated from the neighbouring fit point. False for fewer than two
  // distinct points.
  static bool interpolate(const std::vector<OdGePoint3d>& fitPoints,
                          const OdGeVector3d& startTangent, const OdGeVector3d& endTangent,
                          NurbsCurve& result);
  // The exact rational quadratic of a polyline path of the plane with this normal: straight
  // segments and arcs (bulges) in object coordinates at the given elevation, in world
  // coordinates.
  static NurbsCurve fromBulgedPath(const std::vector<OdGePoint2d>& vertices,
                                   const std::vector<double>& bulges, bool closed, double elevation,
                                   const OdGeVector3d& normal);

 private:
  int findSpan(double param) const;

  int m_degree = 0;
  std::vector<double> m_knots;
  std::vector<OdGePoint3d> m_points;
  std::vector<double> m_weights;
};
