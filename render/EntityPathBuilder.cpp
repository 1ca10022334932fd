// Samples every curve kind into chords: arcs by the chord-height rule, splines per knot span,
// bulged polyline segments as circular arcs of their plane.
#include "render/EntityPathBuilder.h"

#include <algorithm>
#include <cmath>

#include "platform/db/entities/OdDb2dPolyline.h"
#include "platform/db/entities/OdDb2dVertex.h"
#include "platform/db/entities/OdDb3dPolyline.h"
#include "platform/db/entities/OdDb3dPolylineVertex.h"
#include "platform/db/entities/OdDbArc.h"
#include "platform/db/entities/OdDbCircle.h"
#include "platform/db/entities/OdDbEllipse.h"
#include "platform/db/entities/OdDbHatch.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "platform/db/entities/OdDbSolid.h"
#include "platform/db/entities/OdDbSpline.h"
#include "platform/ge/ArcGeometry.h"
#include "platform/ge/NurbsCurve.h"
#include "platform/ge/OdGeConstants.h"

namespace {
constexpr double kTwoPi = OdGeConstants::k2Pi;
constexpr int kMaxSegments = 4096;

// The counter-clockwise sweep from start to end, a full turn when they coincide.
double ccwSweep(double start, double end) {
  double sweep = std::fmod(end - start, kTwoPi);
  if (sweep < 0.0) sweep += kTwoPi;
  if (sweep <= 1e-12) sweep = kTwoPi;
  return sweep;
}

OdGeVector3d vec(const OdGeVector2d& v) {
  return {v.x, v.y, 0.0};
}
OdGePoint3d pt(const OdGePoint2d& p) {
  return {p.x, p.y, 0.0};
}
}  // namespace

EntityPathBuilder::EntityPathBuilder(const OdGeMatrix3d& xform, double tolerance) : m_xform(xform) {
  const double scale = xform.scale();
  m_localTolerance = scale > 0.0 ? tolerance / scale : tolerance;
}

QPointF EntityPathBuilder::map(const OdGePoint3d& point) const {
  const OdGePoint3d world = m_xform * point;
  return {world.x, world.y};
}

int EntityPathBuilder::arcSegments(double radius, double sweep) const {
  const double angle = std::fabs(sweep);
  if (radius <= m_localTolerance) return std::max(1, static_cast<int>(std::ceil(angle / 1.6)));
  // The chord of a step of 2*acos(1 - tol/r) strays tol from the arc.
  const double step = 2.0 * std::acos(1.0 - m_localTolerance / radius);
  const double count = std::ceil(angle / std::max(step, 1e-4));
  return std::clamp(static_cast<int>(count), 2, kMaxSegments);
}

void EntityPathBuilder::sampleArc(const OdGePoint3d& center, const OdGeVector3d& major,
                                  const OdGeVector3d& minor, double start, double sweep,
                                  Points& points) const {
  const int n = arcSegments(std::max(major.length(), minor.length()), sweep);
  for (int i = 0; i <= n; ++i) {
    const double t = start + sweep * i / n;
    points.push_back(center + major * std::cos(t) + minor * std::sin(t));
  }
}

void EntityPathBuilder::sampleNurbs(const NurbsCurve& curve, Points& points) const {
  if (!curve.isValid()) return;
  const std::vector<double>& knots = curve.knots();
  const std::vector<OdGePoint3d>& controls = curve.controlPoints();
  const int degree = curve.degree();
  const std::size_t last = controls.size();
  points.push_back(curve.evaluate(knots[static_cast<std::size_t>(degree)]));
  for (std::size_t span = static_cast<std::size_t>(degree); span < last; ++span) {
    const double a = knots[span];
    const double b = knots[span + 1];
    if (b <= a) continue;
    // The control polygon over the span bounds its length; its bend sets the chord count.
    double polygon = 0.0;
    for (std::size_t k = span - static_cast<std::size_t>(degree); k < span; ++k)
      polygon += controls[k].distanceTo(controls[k + 1]);
    const double count = std::ceil(std::sqrt(polygon / std::max(m_localTolerance, 1e-12)) * 2.0);
    const int n = std::clamp(static_cast<int>(count), 4, 256);
    for (int i = 1; i <= n; ++i)
      points.push_back(curve.evaluate(a + (b - a) * i / n));
  }
}

void EntityPathBuilder::sampleBulgedPath(const std::vector<OdGePoint2d>& vertices,
                                         const std::vector<double>& bulges, bool closed,
                                         double elevation, const OdGeVector3d& normal,
                                         Points& points) const {
  if (vertices.empty()) return;
  const OdGeMatrix3d toWorld = OdGeMatrix3d::planeToWorld(normal);
  const std::size_t count = vertices.size();
  const std::size_t segments = closed ? count : count - 1;
  Points local;
  local.push_back(vertices[0].convert3d(elevation));
  for (std::size_t i = 0; i < segments; ++i) {
    const OdGePoint2d& a = vertices[i];
    const OdGePoint2d& b = vertices[(i + 1) % count];
    const double bulge = i < bulges.size() ? bulges[i] : 0.0;
    OdGePoint2d center;
    double radius = 0.0;
    double startAngle = 0.0;
    double endAngle = 0.0;
    if (bulge != 0.0 && ArcGeometry::fromBulge(a, b, bulge, center, radius, startAngle, endAngle)) {
      // A negative bulge turns clockwise: walk the counter-clockwise arc backwards.
      const double sweep = ccwSweep(startAngle, endAngle);
      const double from = bulge > 0.0 ? startAngle : endAngle;
      Points arc;
      sampleArc(center.convert3d(elevation), {radius, 0.0, 0.0}, {0.0, radius, 0.0}, from,
                bulge > 0.0 ? sweep : -sweep, arc);
      local.insert(local.end(), arc.begin() + 1, arc.end());
    } else {
      local.push_back(b.convert3d(elevation));
    }
  }
  for (const OdGePoint3d& p : local)
    points.push_back(toWorld * p);
}

void EntityPathBuilder::addPolyline(const Points& points, bool closed, QPainterPath& path) const {
  if (points.empty()) return;
  path.moveTo(map(points[0]));
  for (std::size_t i = 1; i < points.size(); ++i)
    path.lineTo(map(points[i]));
  if (closed) path.closeSubpath();
}

bool EntityPathBuilder::outline(const OdDbEntity* entity, QPainterPath& path) const {
  Points points;
  bool closed = false;
  if (auto line = OdDbLine::cast(entity); !line.isNull()) {
    points = {line->startPoint(), line->endPoint()};
  } else if (auto arc = OdDbArc::cast(entity); !arc.isNull()) {
    const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(arc->normal());
    const double r = arc->radius();
    sampleArc(arc->center(), plane.getCsXAxis() * r, plane.getCsYAxis() * r, arc->startAngle(),
              ccwSweep(arc->startAngle(), arc->endAngle()), points);
  } else if (auto circle = OdDbCircle::cast(entity); !circle.isNull()) {
    const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(circle->normal());
    const double r = circle->radius();
    sampleArc(circle->center(), plane.getCsXAxis() * r, plane.getCsYAxis() * r, 0.0, kTwoPi,
              points);
    closed = true;
  } else if (auto ellipse = OdDbEllipse::cast(entity); !ellipse.isNull()) {
    const double sweep =
        ellipse->isClosed() ? kTwoPi : ccwSweep(ellipse->startParam(), ellipse->endParam());
    sampleArc(ellipse->center(), ellipse->majorAxis(), ellipse->minorAxis(), ellipse->startParam(),
              sweep, points);
    closed = ellipse->isClosed();
  } else if (auto pline = OdDbPolyline::cast(entity); !pline.isNull()) {
    std::vector<OdGePoint2d> vertices;
    std::vector<double> bulges;
    for (unsigned int i = 0; i < pline->numVerts(); ++i) {
      vertices.push_back(pline->getPoint2dAt(i));
      bulges.push_back(pline->getBulgeAt(i));
    }
    closed = pline->isClosed();
    sampleBulgedPath(vertices, bulges, closed, pline->elevation(), pline->normal(), points);
    if (closed && !points.empty()) points.pop_back();
  } else if (auto pline2d = OdDb2dPolyline::cast(entity); !pline2d.isNull()) {
    std::vector<OdGePoint2d> vertices;
    std::vector<double> bulges;
    for (unsigned int i = 0; i < pline2d->numVerts(); ++i) {
      const OdDb2dVertexPtr vertex = pline2d->vertexAt(i);
      // Frame points of a spline-fit polyline are not on the curve.
      if (vertex->flags() & OdDb2dVertex::kSplineControl) continue;
      vertices.push_back(vertex->position().convert2d());
      bulges.push_back(vertex->bulge());
    }
    closed = pline2d->isClosed();
    sampleBulgedPath(vertices, bulges, closed, pline2d->elevation(), pline2d->normal(), points);
    if (closed && !points.empty()) points.pop_back();
  } else if (auto pline3d = OdDb3dPolyline::cast(entity); !pline3d.isNull()) {
    for (unsigned int i = 0; i < pline3d->numVerts(); ++i) {
      const OdDb3dPolylineVertexPtr vertex = pline3d->vertexAt(i);
      if (vertex->flags() & OdDb3dPolylineVertex::kSplineControl) continue;
      points.push_back(vertex->position());
    }
    closed = pline3d->isClosed();
  } else if (auto spline = OdDbSpline::cast(entity); !spline.isNull()) {
    std::vector<OdGePoint3d> controls;
    std::vector<double> weights;
    for (int i = 0; i < spline->numControlPoints(); ++i) {
      controls.push_back(spline->controlPointAt(i));
      if (spline->isRational()) weights.push_back(spline->weightAt(i));
    }
    const OdGeDoubleArray knots = spline->knots();
    sampleNurbs(NurbsCurve(spline->degree(), std::vector<double>(knots.begin(), knots.end()),
                           controls, weights),
                points);
  } else {
    return false;
  }
  addPolyline(points, closed, path);
  return true;
}

bool EntityPathBuilder::area(const OdDbEntity* entity, QPainterPath& path) const {
  path.setFillRule(Qt::OddEvenFill);
  if (auto solid = OdDbSolid::cast(entity); !solid.isNull()) {
    // The third and fourth corners are joined crosswise: the outline runs 0, 1, 3, 2.
    addPolyline(
        {solid->getPointAt(0), solid->getPointAt(1), solid->getPointAt(3), solid->getPointAt(2)},
        true, path);
    return true;
  }
  if (auto hatch = OdDbHatch::cast(entity); !hatch.isNull()) {
    hatchArea(hatch.get(), path);
    return true;
  }
  return false;
}

void EntityPathBuilder::hatchArea(const OdDbHatch* hatch, QPainterPath& path) const {
  const OdGeMatrix3d toWorld = OdGeMatrix3d::planeToWorld(hatch->normal());
  const OdGeVector3d lift(0.0, 0.0, hatch->elevation());
  for (int loop = 0; loop < hatch->numLoops(); ++loop) {
    Points local;
    if (hatch->isPolylineLoop(loop)) {
      OdGePoint2dArray vertices;
      OdArray<double> bulges;
      hatch->getLoopAt(loop, vertices, bulges);
      sampleBulgedPath(std::vector<OdGePoint2d>(vertices.begin(), vertices.end()),
                       std::vector<double>(bulges.begin(), bulges.end()), true, hatch->elevation(),
                       hatch->normal(), local);
      addPolyline(local, true, path);
      continue;
    }
    for (const OdDbHatch::Edge& edge : hatch->edgesAt(loop)) {
      Points piece;
      switch (edge.type) {
        case OdDbHatch::kLine:
          piece = {pt(edge.start), pt(edge.end)};
          break;
        case OdDbHatch::kCirArc:
        case OdDbHatch::kEllArc: {
          OdGeVector3d major(edge.radius, 0.0, 0.0);
          double ratio = 1.0;
          if (edge.type == OdDbHatch::kEllArc) {
            major = vec(edge.majorAxis);
            ratio = edge.ratio;
          }
          const OdGeVector3d minor = OdGeVector3d(-major.y, major.x, 0.0) * ratio;
          double start = edge.startAngle;
          double end = edge.endAngle;
          if (!edge.ccw) std::swap(start, end);
          const double sweep = ccwSweep(start, end);
          // A clockwise edge runs the counter-clockwise arc backwards, from its own start.
          sampleArc(pt(edge.center), major, minor, edge.ccw ? start : end,
                    edge.ccw ? sweep : -sweep, piece);
          break;
        }
        case OdDbHatch::kSpline: {
          NurbsCurve curve;
          if (!edge.controlPoints.isEmpty()) {
            std::vector<OdGePoint3d> controls;
            for (const OdGePoint2d& p : edge.controlPoints)
              controls.push_back(pt(p));
            curve = NurbsCurve(
                edge.degree, std::vector<double>(edge.knots.begin(), edge.knots.end()), controls,
                edge.rational ? std::vector<double>(edge.weights.begin(), edge.weights.end())
                              : std::vector<double>());
          } else {
            std::vector<OdGePoint3d> fit;
            for (const OdGePoint2d& p : edge.fitPoints)
              fit.push_back(pt(p));
            NurbsCurve::interpolate(fit, vec(edge.startTangent), vec(edge.endTangent), curve);
          }
          sampleNurbs(curve, piece);
          break;
        }
      }
      local.insert(local.end(), piece.begin(), piece.end());
    }
    for (OdGePoint3d& p : local)
      p = toWorld * (p + lift);
    addPolyline(local, true, path);
  }
}
