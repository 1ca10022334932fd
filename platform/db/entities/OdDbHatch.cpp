#include "platform/db/entities/OdDbHatch.h"

#include <cmath>
#include <vector>

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/entities/HatchBoundaryFiling.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/ge/ArcGeometry.h"
#include "platform/ge/EllipseArc.h"
#include "platform/ge/NurbsCurve.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/PlanarTransform.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbHatch, OdDbEntity, "HATCH", "", 0)

namespace {
// The counter-clockwise range of an arc or elliptical arc edge.
void ccwRange(const OdDbHatch::Edge& edge, double& start, double& end) {
  start = edge.ccw ? edge.startAngle : edge.endAngle;
  end = edge.ccw ? edge.endAngle : edge.startAngle;
}

OdGePoint2d arcPoint(const OdDbHatch::Edge& edge, double angle) {
  return edge.center + OdGeVector2d(std::cos(angle), std::sin(angle)) * edge.radius;
}

OdGeVector2d perpendicular(const OdGeVector2d& v) {
  return OdGeVector2d(-v.y, v.x);
}

bool isFullTurn(const OdDbHatch::Edge& edge) {
  return OdGeAngle::isEqual(edge.startAngle, edge.endAngle);
}

OdGePoint2d ellipsePoint(const OdDbHatch::Edge& edge, double param) {
  return edge.center + edge.majorAxis * std::cos(param) +
         perpendicular(edge.majorAxis) * (edge.ratio * std::sin(param));
}

OdGeVector3d vec3(const OdGeVector2d& v) {
  return OdGeVector3d(v.x, v.y, 0.0);
}
}  // namespace

const OdDbHatch::Loop& OdDbHatch::loop(int index, const char* where) const {
  if (index < 0 || static_cast<unsigned int>(index) >= m_loops.length())
    throw OdError(eInvalidIndex, std::string(where) + ": loop index out of range");
  return m_loops[index];
}

OdString OdDbHatch::patternName() const {
  assertReadEnabled();
  return m_patternName;
}

OdDbHatch::HatchPatternType OdDbHatch::patternType() const {
  assertReadEnabled();
  return m_patternType;
}

void OdDbHatch::setPattern(HatchPatternType type, const OdString& name) {
  if (name.isEmpty()) throw OdError(eInvalidInput, "OdDbHatch::setPattern: empty pattern name");
  assertWriteEnabled();
  m_patternType = type;
  m_patternName = name;
}

bool OdDbHatch::isSolidFill() const {
  assertReadEnabled();
  return m_patternName.iEquals("SOLID");
}

bool OdDbHatch::associative() const {
  assertReadEnabled();
  return m_associative;
}

void OdDbHatch::setAssociative(bool associative) {
  assertWriteEnabled();
  m_associative = associative;
}

double OdDbHatch::patternAngle() const {
  assertReadEnabled();
  return m_patternAngle;
}

void OdDbHatch::setPatternAngle(double angle) {
  assertWriteEnabled();
  m_patternAngle = OdGeAngle::normalize(angle);
}

double OdDbHatch::patternScale() const {
  assertReadEnabled();
  return m_patternScale;
}

void OdDbHatch::setPatternScale(double scale) {
  if (!(scale > 0.0)) throw OdError(eInvalidInput, "OdDbHatch::setPatternScale: scale must be > 0");
  assertWriteEnabled();
  m_patternScale = scale;
}

OdDbHatch::HatchStyle OdDbHatch::hatchStyle() const {
  assertReadEnabled();
  return m_style;
}

void OdDbHatch::setHatchStyle(HatchStyle style) {
  assertWriteEnabled();
  m_style = style;
}

double OdDbHatch::elevation() const {
  assertReadEnabled();
  return m_elevation;
}

void OdDbHatch::setElevation(double elevation) {
  assertWriteEnabled();
  m_elevation = elevation;
}

OdGeVector3d OdDbHatch::normal() const {
  assertReadEnabled();
  return m_normal;
}

void OdDbHatch::setNormal(const OdGeVector3d& normal) {
  if (normal.isZeroLength()) throw OdError(eInvalidInput, "OdDbHatch::setNormal: zero normal");
  assertWriteEnabled();
  m_normal = normal.normal();
}

int OdDbHatch::numLoops() const {
  assertReadEnabled();
  return static_cast<int>(m_loops.length());
}

int OdDbHatch::loopTypeAt(int index) const {
  assertReadEnabled();
  return loop(index, "OdDbHatch::loopTypeAt").type;
}

bool OdDbHatch::isPolylineLoop(int index) const {
  return (loopTypeAt(index) & kPolyline) != 0;
}

void OdDbHatch::appendLoop(int loopType, const OdGePoint2dArray& vertices,
                           const OdArray<double>& bulges) {
  if (vertices.length() < 2 || (!bulges.isEmpty() && bulges.length() != vertices.length()))
    throw OdError(eInvalidInput,
                  "OdDbHatch::appendLoop: a polyline loop needs two or more vertices and one "
                  "bulge per vertex");
  assertWriteEnabled();
  Loop added;
  added.type = loopType | kPolyline;
  added.vertices = vertices;
  added.bulges = bulges.isEmpty() ? OdArray<double>().resize(vertices.length(), 0.0) : bulges;
  m_loops.append(added);
}

void OdDbHatch::appendLoop(int loopType, const OdArray<Edge>& edges) {
  if (edges.isEmpty()) throw OdError(eInvalidInput, "OdDbHatch::appendLoop: no edges");
  assertWriteEnabled();
  Loop added;
  added.type = loopType & ~kPolyline;
  added.edges = edges;
  m_loops.append(added);
}

void OdDbHatch::getLoopAt(int index, OdGePoint2dArray& vertices, OdArray<double>& bulges) const {
  assertReadEnabled();
  const Loop& found = loop(index, "OdDbHatch::getLoopAt");
  vertices = found.vertices;
  bulges = found.bulges;
}

OdArray<OdDbHatch::Edge> OdDbHatch::edgesAt(int index) const {
  assertReadEnabled();
  return loop(index, "OdDbHatch::edgesAt").edges;
}

void OdDbHatch::removeLoopAt(int index) {
  loop(index, "OdDbHatch::removeLoopAt");
  assertWriteEnabled();
  m_loops.removeAt(index);
}

OdGePoint2dArray OdDbHatch::seedPoints() const {
  assertReadEnabled();
  return m_seeds;
}

void OdDbHatch::setSeedPoints(const OdGePoint2dArray& points) {
  assertWriteEnabled();
  m_seeds = points;
}

void OdDbHatch::mapLoops(const PlanarTransform& plane) {
  auto point = [&](const OdGePoint2d& p) { return plane.mapOcsPoint(p, m_elevation).convert2d(); };
  auto vector = [&](const OdGePoint2d& from, const OdGeVector2d& v) {
    return point(from + v) - point(from);
  };
  for (Loop& l : m_loops) {
    for (OdGePoint2d& v : l.vertices)
      v = point(v);
    if (plane.isReversed()) {
      for (double& b : l.bulges)
        b = -b;
    }
    for (Edge& e : l.edges) {
      switch (e.type) {
        case kLine:
          e.start = point(e.start);
          e.end = point(e.end);
          break;
        case kCirArc:
          e.startAngle = OdGeAngle::normalize(plane.mapAngle(e.startAngle));
          e.endAngle = OdGeAngle::normalize(plane.mapAngle(e.endAngle));
          e.center = point(e.center);
          e.radius *= plane.scale();
          if (plane.isReversed()) e.ccw = !e.ccw;
          break;
        case kEllArc: {
          // The plane's map in object coordinates, about the centre.
          const OdGePoint2d c = point(e.center);
          const OdGeMatrix3d local =
              OdGeMatrix3d().setCoordSystem(
                  c.convert3d(), vec3(vector(e.center, OdGeVector2d(1, 0))),
                  vec3(vector(e.center, OdGeVector2d(0, 1))), OdGeVector3d::kZAxis) *
              OdGeMatrix3d::translation(-vec3(e.center.asVector()));
          double start = 0.0;
          double end = 0.0;
          ccwRange(e, start, end);
          const EllipseArc image(e.center.convert3d(), vec3(e.majorAxis),
                                 vec3(perpendicular(e.majorAxis) * e.ratio), start, end);
          EllipseArc mapped = image;
          if (!image.transformedBy(local, mapped)) break;
          // The mapped range is counter-clockwise; a mirror reverses the edge's direction.
          e.ccw = e.ccw != plane.isReversed();
          e.center = mapped.center().convert2d();
          e.majorAxis = mapped.majorAxis().convert2d();
          e.ratio = mapped.minorAxis().length() / mapped.majorAxis().length();
          const double s = mapped.isFull() ? 0.0 : mapped.startParam();
          const double t =
              mapped.isFull() ? OdGeAngle::k2Pi : OdGeAngle::normalize(mapped.endParam());
          e.startAngle = e.ccw ? s : t;
          e.endAngle = e.ccw ? t : s;
          break;
        }
        case kSpline:
          for (OdGePoint2d& p : e.controlPoints)
            p = point(p);
          for (OdGePoint2d& p : e.fitPoints)
            p = point(p);
          if (!e.startTangent.isZeroLength())
            e.startTangent = vector(OdGePoint2d(), e.startTangent).normal();
          if (!e.endTangent.isZeroLength())
            e.endTangent = vector(OdGePoint2d(), e.endTangent).normal();
          break;
      }
    }
  }
}

OdResult OdDbHatch::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (!plane.isSimilarity()) {
    for (const Loop& l : m_loops) {
      for (double b : l.bulges) {
        if (b != 0.0) return eCannotScaleNonUniformly;
      }
      for (const Edge& e : l.edges) {
        if (e.type == kCirArc) return eCannotScaleNonUniformly;
      }
    }
  }
  mapLoops(plane);
  for (OdGePoint2d& seed : m_seeds)
    seed = plane.mapOcsPoint(seed, m_elevation).convert2d();
  m_patternAngle = OdGeAngle::normalize(plane.mapAngle(m_patternAngle));
  if (plane.isSimilarity()) m_patternScale *= plane.scale();
  m_elevation = plane.mapOcsPoint(OdGePoint2d(), m_elevation).z;
  m_normal = plane.newNormal();
  return eOk;
}

void OdDbHatch::loopStretchPoints(const Loop& l, OdGePoint2dArray& points) {
  const unsigned int first = points.length();
  auto add = [&](const OdGePoint2d& p) {
    for (unsigned int i = first; i < points.length(); ++i) {
      if (points[i].isEqualTo(p)) return;
    }
    points.append(p);
  };
  for (const OdGePoint2d& v : l.vertices)
    add(v);
  for (const Edge& e : l.edges) {
    switch (e.type) {
      case kLine:
        add(e.start);
        add(e.end);
        break;
      case kCirArc:
        if (isFullTurn(e)) {
          add(e.center);
        } else {
          add(arcPoint(e, e.startAngle));
          add(arcPoint(e, e.endAngle));
        }
        break;
      case kEllArc:
        add(e.center);
        break;
      case kSpline:
        for (const OdGePoint2d& p : e.controlPoints)
          add(p);
        break;
    }
  }
}

OdResult OdDbHatch::getStretchPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  const OdGeMatrix3d toWorld = OdGeMatrix3d::planeToWorld(m_normal);
  for (const Loop& l : m_loops) {
    OdGePoint2dArray local;
    loopStretchPoints(l, local);
    for (const OdGePoint2d& p : local)
      points.append(toWorld * p.convert3d(m_elevation));
  }
  return eOk;
}

OdResult OdDbHatch::moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  assertWriteEnabled();
  const OdGeVector3d local = OdGeMatrix3d::worldToPlane(m_normal) * offset;
  const OdGeVector2d shift = local.convert2d();
  OdGePoint3dArray all;
  getStretchPoints(all);
  bool everyPoint = !all.isEmpty();
  for (unsigned int i = 0; i < all.length(); ++i)
    everyPoint = everyPoint && indices.contains(static_cast<int>(i));
  // Only a move of every point may lift the plane; single points stay in it.
  if (everyPoint) {
    m_elevation += local.z;
    for (OdGePoint2d& seed : m_seeds)
      seed += shift;
  }
  int base = 0;
  for (Loop& l : m_loops) {
    OdGePoint2dArray local;
    loopStretchPoints(l, local);
    OdGePoint2dArray moved;
    for (int index : indices) {
      if (index >= base && index < base + static_cast<int>(local.length()))
        moved.append(local[index - base]);
    }
    base += static_cast<int>(local.length());
    if (moved.isEmpty()) continue;
    auto isMoved = [&](const OdGePoint2d& p) {
      for (const OdGePoint2d& m : moved) {
        if (m.isEqualTo(p)) return true;
      }
      return false;
    };
    for (OdGePoint2d& v : l.vertices) {
      if (isMoved(v)) v += shift;
    }
    for (Edge& e : l.edges) {
      if (e.type == kLine) {
        const bool startMoves = isMoved(e.start);
        const bool endMoves = isMoved(e.end);
        if (startMoves) e.start += shift;
        if (endMoves) e.end += shift;
      } else if (e.type == kEllArc) {
        const bool bothEnds =
            isMoved(ellipsePoint(e, e.startAngle)) && isMoved(ellipsePoint(e, e.endAngle));
        if (isMoved(e.center) || bothEnds) e.center += shift;
      } else if (e.type == kSpline) {
        bool changed = false;
        for (OdGePoint2d& p : e.controlPoints) {
          if (!isMoved(p)) continue;
          p += shift;
          changed = true;
        }
        // Fit data no longer describes moved control points.
        if (changed) {
          e.fitPoints.clear();
          e.startTangent = e.endTangent = OdGeVector2d();
        }
      } else if (isFullTurn(e)) {
        if (isMoved(e.center)) e.center += shift;
      } else {
        OdGePoint2d from = arcPoint(e, e.startAngle);
        OdGePoint2d to = arcPoint(e, e.endAngle);
        const bool fromMoves = isMoved(from);
        const bool toMoves = isMoved(to);
        if (!fromMoves && !toMoves) continue;
        if (fromMoves && toMoves) {
          e.center += shift;
          continue;
        }
        (fromMoves ? from : to) += shift;
        double start = 0.0;
        double end = 0.0;
        ccwRange(e, start, end);
        const double sweep = OdGeAngle::normalize(end - start);
        OdGePoint2d center;
        double radius = 0.0;
        double angle = 0.0;
        if (!ArcGeometry::fromEnds(e.ccw ? from : to, e.ccw ? to : from, sweep, center, radius,
                                   angle))
          return eDegenerateGeometry;
        e.center = center;
        e.radius = radius;
        const double a = OdGeAngle::normalize(angle);
        const double b = OdGeAngle::normalize(angle + sweep);
        e.startAngle = e.ccw ? a : b;
        e.endAngle = e.ccw ? b : a;
      }
    }
  }
  return eOk;
}

OdResult OdDbHatch::subGetGripPoints(OdGePoint3dArray& points) const {
  return getStretchPoints(points);
}

OdResult OdDbHatch::subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  return moveStretchPointsAt(indices, offset);
}

OdResult OdDbHatch::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  extents = OdGeExtents3d();
  const OdGeMatrix3d toWorld = OdGeMatrix3d::planeToWorld(m_normal);
  auto world = [&](const OdGePoint2d& p) { return toWorld * p.convert3d(m_elevation); };
  for (const Loop& l : m_loops) {
    ArcGeometry::addPathExtents(l.vertices.toStdVector(), l.bulges.toStdVector(), true, m_elevation,
                                m_normal, extents);
    for (const Edge& e : l.edges) {
      double start = 0.0;
      double end = 0.0;
      ccwRange(e, start, end);
      switch (e.type) {
        case kLine:
          extents.addPoint(world(e.start)).addPoint(world(e.end));
          break;
        case kCirArc:
          EllipseArc(world(e.center), toWorld.getCsXAxis() * e.radius,
                     toWorld.getCsYAxis() * e.radius, start, end)
              .addToExtents(extents);
          break;
        case kEllArc:
          EllipseArc(world(e.center), toWorld * vec3(e.majorAxis),
                     toWorld * vec3(perpendicular(e.majorAxis) * e.ratio), start, end)
              .addToExtents(extents);
          break;
        case kSpline: {
          std::vector<OdGePoint3d> points;
          for (const OdGePoint2d& p : e.controlPoints)
            points.push_back(world(p));
          const NurbsCurve curve(e.degree, e.knots.toStdVector(), points,
                                 e.rational ? e.weights.toStdVector() : std::vector<double>());
          if (curve.isValid()) curve.addToExtents(extents);
          break;
        }
      }
    }
  }
  return extents.isValidExtents() ? eOk : eInvalidExtents;
}

OdResult OdDbHatch::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult res = OdDbEntity::dwgInFields(filer);
  if (res != eOk) return res;
  m_patternName = filer->rdString();
  m_patternType = static_cast<HatchPatternType>(filer->rdInt16());
  m_associative = filer->rdBool();
  m_patternAngle = filer->rdDouble();
  m_patternScale = filer->rdDouble();
  m_style = static_cast<HatchStyle>(filer->rdInt16());
  m_elevation = filer->rdDouble();
  m_normal = filer->rdVector3d();
  if (!HatchBoundaryFiling::dwgIn(filer, m_loops)) return eDwgObjectImproperlyRead;
  const int seeds = filer->rdInt32();
  if (seeds < 0) return eDwgObjectImproperlyRead;
  m_seeds.clear();
  for (int i = 0; i < seeds; ++i)
    m_seeds.append(filer->rdPoint2d());
  return filer->filerStatus();
}

void OdDbHatch::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrString(m_patternName);
  filer->wrInt16(static_cast<int16_t>(m_patternType));
  filer->wrBool(m_associative);
  filer->wrDouble(m_patternAngle);
  filer->wrDouble(m_patternScale);
  filer->wrInt16(static_cast<int16_t>(m_style));
  filer->wrDouble(m_elevation);
  filer->wrVector3d(m_normal);
  HatchBoundaryFiling::dwgOut(filer, m_loops);
  filer->wrInt32(static_cast<int32_t>(m_seeds.length()));
  for (const OdGePoint2d& seed : m_seeds)
    filer->wrPoint2d(seed);
}

OdResult OdDbHatch::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult res = OdDbEntity::dxfInFields(filer);
  if (res != eOk) return res;
  EntityFiling::requireSubclass(filer, this, "AcDbHatch");
  m_loops.clear();
  m_seeds.clear();
  bool seedsFollow = false;
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    const int code = filer->nextItem();
    switch (code) {
      case 10:
        if (seedsFollow)
          m_seeds.append(filer->rdPoint2d());
        else
          m_elevation = filer->rdPoint3d().z;
        break;
      case 210:
        m_normal = EntityFiling::rdNormal(filer);
        break;
      case 2:
        m_patternName = filer->rdString();
        break;
      case 71:
        m_associative = filer->rdInt16() != 0;
        break;
      case 75:
        m_style = static_cast<HatchStyle>(filer->rdInt16());
        break;
      case 76:
        m_patternType = static_cast<HatchPatternType>(filer->rdInt16());
        break;
      case 52:
        m_patternAngle = OdGeAngle::normalize(EntityFiling::rdAngleDegrees(filer));
        break;
      case 41:
        m_patternScale = filer->rdDouble();
        break;
      case 98:
        seedsFollow = true;
        break;
      case 91:
        HatchBoundaryFiling::dxfIn(filer, this, m_loops);
        break;
      default:
        break;
    }
  }
  return filer->filerStatus();
}

void OdDbHatch::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbHatch");
  filer->wrPoint3d(10, OdGePoint3d(0.0, 0.0, m_elevation));
  filer->wrVector3d(210, m_normal);
  filer->wrString(2, m_patternName);
  const bool solid = m_patternName.iEquals("SOLID");
  filer->wrInt16(70, solid ? 1 : 0);
  filer->wrInt16(71, m_associative ? 1 : 0);
  HatchBoundaryFiling::dxfOut(filer, m_loops);
  filer->wrInt16(75, static_cast<int16_t>(m_style));
  filer->wrInt16(76, static_cast<int16_t>(m_patternType));
  if (!solid) {
    EntityFiling::wrAngleDegrees(filer, 52, m_patternAngle);
    filer->wrDouble(41, m_patternScale);
    filer->wrInt16(77, 0);
    filer->wrInt16(78, 0);
  }
  filer->wrInt32(98, static_cast<int32_t>(m_seeds.length()));
  for (const OdGePoint2d& seed : m_seeds)
    filer->wrPoint2d(10, seed);
}
