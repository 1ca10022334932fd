// Contour geometry: arcs from bulges, area, extents and the winding-number containment test.
#include "platform/ge/OdGeContour2d.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "platform/base/OdError.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeMatrix3d.h"

namespace {
// Below this a bulge is a straight edge: the arc would be flatter than any tolerance we honour
// and its radius too large to compute with.
constexpr double kStraightBulge = 1e-10;

// The circular arc of an edge: center, radius, start angle and signed sweep.
struct Arc {
  OdGePoint2d center;
  double radius;
  double startAngle;
  double sweep;

  OdGePoint2d pointAt(double angle) const {
    return center + OdGeVector2d(std::cos(angle), std::sin(angle)) * radius;
  }
  // True when the direction `angle` from the center falls within the sweep, ends excluded.
  bool spans(double angle) const {
    double along =
        std::fmod((sweep > 0.0 ? angle - startAngle : startAngle - angle), OdGeAngle::k2Pi);
    if (along < 0.0) along += OdGeAngle::k2Pi;
    return along > 0.0 && along < std::fabs(sweep);
  }
};

// The arc of the edge a -> b with this bulge; false for a straight or zero-length edge.
bool edgeArc(const OdGePoint2d& a, const OdGePoint2d& b, double bulge, Arc& arc) {
  const OdGeVector2d chord = b - a;
  const double length = chord.length();
  if (std::fabs(bulge) <= kStraightBulge || length == 0.0) return false;
  arc.radius = length * (1.0 + bulge * bulge) / (4.0 * std::fabs(bulge));
  // A counter-clockwise arc lies to the right of the chord; the center sits on the chord's
  // perpendicular bisector, sagitta - radius from the midpoint towards the arc side.
  const OdGeVector2d toArcSide(chord.y / length, -chord.x / length);
  const double sagitta = bulge * length * 0.5;
  const double offset = sagitta - std::copysign(arc.radius, bulge);
  arc.center = a + chord * 0.5 + toArcSide * offset;
  // An arc too large for doubles (a huge bulge or coordinates near the limits) has no usable
  // center; it is taken as its chord, like an arc too flat to compute with.
  if (!std::isfinite(arc.radius) || !std::isfinite(arc.center.x) || !std::isfinite(arc.center.y))
    return false;
  arc.startAngle = std::atan2(a.y - arc.center.y, a.x - arc.center.x);
  arc.sweep = 4.0 * std::atan(bulge);
  return true;
}

double distanceToSegment(const OdGePoint2d& p, const OdGePoint2d& a, const OdGePoint2d& b) {
  const OdGeVector2d ab = b - a;
  const double lengthSqrd = ab.lengthSqrd();
  if (lengthSqrd == 0.0) return p.distanceTo(a);
  const double t = std::clamp((p - a).dotProduct(ab) / lengthSqrd, 0.0, 1.0);
  return p.distanceTo(a + ab * t);
}

// True when p is within tol of the arc. Its ends lie on the circle, so a point off the circle's
// band is near neither the arc nor its ends and needs no angle.
bool isNearArc(const OdGePoint2d& p, const Arc& arc, const OdGePoint2d& a, const OdGePoint2d& b,
               double tol) {
  const OdGeVector2d fromCenter = p - arc.center;
  const double offCircle = std::fabs(fromCenter.length() - arc.radius);
  if (!(offCircle <= tol)) return false;
  return arc.spans(std::atan2(fromCenter.y, fromCenter.x)) || p.distanceTo(a) <= tol ||
         p.distanceTo(b) <= tol;
}

// Signed crossings of the ray from p towards +x with the edge s -> e, counting an endpoint only
// when it lies strictly above p so that shared vertices are counted once.
int lineCrossing(const OdGePoint2d& p, const OdGePoint2d& s, const OdGePoint2d& e) {
  if ((s.y > p.y) == (e.y > p.y)) return 0;
  const double x = s.x + (p.y - s.y) * (e.x - s.x) / (e.y - s.y);
  if (!(x > p.x)) return 0;
  return e.y > s.y ? 1 : -1;
}

// The same for an arc, split at its highest and lowest points so that each piece is monotone in
// y and meets the ray at most once.
int arcCrossing(const OdGePoint2d& p, const Arc& arc, const OdGePoint2d& a, const OdGePoint2d& b) {
  const double direction = arc.sweep > 0.0 ? 1.0 : -1.0;
  // The first extreme angle (pi/2 + k*pi) strictly after the start, in the sweep's direction.
  double extreme =
      OdGeAngle::kHalfPi +
      OdGeAngle::kPi *
          (direction > 0.0
               ? std::floor((arc.startAngle - OdGeAngle::kHalfPi) / OdGeAngle::kPi) + 1.0
               : std::ceil((arc.startAngle - OdGeAngle::kHalfPi) / OdGeAngle::kPi) - 1.0);
  const double endAngle = arc.startAngle + arc.sweep;
  int winding = 0;
  OdGePoint2d pieceStart = a;
  double pieceStartAngle = arc.startAngle;
  for (;;) {
    const bool last = direction * (endAngle - extreme) <= 0.0;
    const double pieceEndAngle = last ? endAngle : extreme;
    const OdGePoint2d pieceEnd =
        last ? b : OdGePoint2d(arc.center.x, arc.center.y + std::sin(extreme) * arc.radius);
    if ((pieceStart.y > p.y) != (pieceEnd.y > p.y)) {
      const double dy = p.y - arc.center.y;
      const double half = std::sqrt(std::max(0.0, arc.radius * arc.radius - dy * dy));
      const bool rightHalf = std::cos(0.5 * (pieceStartAngle + pieceEndAngle)) > 0.0;
      const double x = arc.center.x + (rightHalf ? half : -half);
      if (x > p.x) winding += pieceEnd.y > pieceStart.y ? 1 : -1;
    }
    if (last) break;
    pieceStart = pieceEnd;
    pieceStartAngle = extreme;
    extreme += direction * OdGeAngle::kPi;
  }
  return winding;
}
}  // namespace

OdGeContour2d OdGeContour2d::rectangle(const OdGePoint2d& corner1, const OdGePoint2d& corner2) {
  const double x0 = std::min(corner1.x, corner2.x);
  const double x1 = std::max(corner1.x, corner2.x);
  const double y0 = std::min(corner1.y, corner2.y);
  const double y1 = std::max(corner1.y, corner2.y);
  OdGeContour2d contour;
  contour.appendVertex({x0, y0}).appendVertex({x1, y0}).appendVertex({x1, y1}).appendVertex(
      {x0, y1});
  return contour;
}

OdGeContour2d OdGeContour2d::fromPoints(const OdArray<OdGePoint2d>& points) {
  OdGeContour2d contour;
  for (const OdGePoint2d& p : points)
    contour.appendVertex(p);
  return contour;
}

OdGeContour2d& OdGeContour2d::appendVertex(const OdGePoint2d& point, double bulge) {
  if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(bulge)) {
    throw OdError(eInvalidInput, "OdGeContour2d::appendVertex: vertex " +
                                     std::to_string(m_vertices.size()) +
                                     " has a non-finite coordinate or bulge");
  }
  m_vertices.push_back({point, bulge});
  return *this;
}

const OdGeContour2d::Vertex& OdGeContour2d::vertex(unsigned index) const {
  if (index >= m_vertices.size()) {
    throw OdError(eInvalidIndex, "OdGeContour2d: vertex index " + std::to_string(index) +
                                     " out of range (" + std::to_string(m_vertices.size()) +
                                     " vertices)");
  }
  return m_vertices[index];
}

OdGeContour2d& OdGeContour2d::translate(const OdGeVector2d& offset) {
  for (Vertex& v : m_vertices)
    v.point += offset;
  return *this;
}

OdGeContour2d& OdGeContour2d::transformBy(const OdGeMatrix3d& matrix) {
  const auto& m = matrix.entry;
  const OdGeVector2d xAxis(m[0][0], m[1][0]);
  const OdGeVector2d yAxis(m[0][1], m[1][1]);
  const bool hasArcs = std::any_of(m_vertices.begin(), m_vertices.end(), [](const Vertex& v) {
    return std::fabs(v.bulge) > kStraightBulge;
  });
  if (hasArcs) {
    const double tol = OdGeContext::gTol.equalVector();
    const double lx = xAxis.length();
    const double ly = yAxis.length();
    if (std::fabs(xAxis.dotProduct(yAxis)) > tol * lx * ly ||
        std::fabs(lx - ly) > tol * std::max(lx, ly)) {
      throw OdError(eNotApplicable,
                    "OdGeContour2d::transformBy: the transformation would turn arcs into ellipses");
    }
  }
  const bool mirrored = xAxis.crossProduct(yAxis) < 0.0;
  for (Vertex& v : m_vertices) {
    const OdGePoint2d p = v.point;
    v.point.set(m[0][0] * p.x + m[0][1] * p.y + m[0][3], m[1][0] * p.x + m[1][1] * p.y + m[1][3]);
    if (mirrored) v.bulge = -v.bulge;
  }
  return *this;
}

OdGeExtents2d OdGeContour2d::extents() const {
  OdGeExtents2d box;
  const size_t n = m_vertices.size();
  for (size_t i = 0; i < n; ++i) {
    const Vertex& v = m_vertices[i];
    box.addPoint(v.point);
    Arc arc;
    if (!edgeArc(v.point, m_vertices[(i + 1) % n].point, v.bulge, arc)) continue;
    for (int quadrant = 0; quadrant < 4; ++quadrant) {
      const double angle = quadrant * OdGeAngle::kHalfPi;
      if (arc.spans(angle)) box.addPoint(arc.pointAt(angle));
    }
  }
  return box;
}

double OdGeContour2d::area() const {
  const size_t n = m_vertices.size();
  double twiceChordArea = 0.0;
  double segments = 0.0;
  for (size_t i = 0; i < n; ++i) {
    const OdGePoint2d& a = m_vertices[i].point;
    const OdGePoint2d& b = m_vertices[(i + 1) % n].point;
    twiceChordArea += a.x * b.y - b.x * a.y;
    Arc arc;
    if (edgeArc(a, b, m_vertices[i].bulge, arc)) {
      // The circular segment between chord and arc: added for a counter-clockwise arc (it
      // bulges to the right of the chord), removed for a clockwise one.
      const double sweep = std::fabs(arc.sweep);
      segments +=
          std::copysign(0.5 * arc.radius * arc.radius * (sweep - std::sin(sweep)), arc.sweep);
    }
  }
  return 0.5 * twiceChordArea + segments;
}

OdGeContour2d::Containment OdGeContour2d::classify(const OdGePoint2d& p, double tol) const {
  const size_t n = m_vertices.size();
  if (n == 0) return kOutside;
  int winding = 0;
  for (size_t i = 0; i < n; ++i) {
    const OdGePoint2d& a = m_vertices[i].point;
    const OdGePoint2d& b = m_vertices[(i + 1) % n].point;
    Arc arc;
    if (edgeArc(a, b, m_vertices[i].bulge, arc)) {
      if (isNearArc(p, arc, a, b, tol)) return kOnBoundary;
      winding += arcCrossing(p, arc, a, b);
    } else {
      if (distanceToSegment(p, a, b) <= tol) return kOnBoundary;
      winding += lineCrossing(p, a, b);
    }
  }
  return winding != 0 ? kInside : kOutside;
}
