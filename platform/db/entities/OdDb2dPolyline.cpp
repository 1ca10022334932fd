#include "platform/db/entities/OdDb2dPolyline.h"

#include <vector>

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/entities/SplineCopy.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/ge/ArcGeometry.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/PlanarTransform.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDb2dPolyline, OdDbEntity, "POLYLINE", "", 0)

namespace {
constexpr int kClosedFlag = 1;
constexpr int kCurveFitFlag = 2;
constexpr int kSplineFitFlag = 4;
constexpr int kPlinegenFlag = 128;
// Curve-type codes of spline-fitted polylines.
constexpr int kQuadraticCurve = 5;
constexpr int kCubicCurve = 6;
}  // namespace

OdDb2dPolyline::OdDb2dPolyline() = default;

OdGePoint3d OdDb2dPolyline::vertexPosition(unsigned int index) const {
  const OdGePoint3d ocs = vertexAt(index)->position();
  return EntityFiling::toWcs(m_normal, OdGePoint3d(ocs.x, ocs.y, m_elevation));
}

OdDb2dPolyline::PolyType OdDb2dPolyline::polyType() const {
  assertReadEnabled();
  return m_type;
}

void OdDb2dPolyline::setPolyType(PolyType type) {
  assertWriteEnabled();
  m_type = type;
}

double OdDb2dPolyline::defaultStartWidth() const {
  assertReadEnabled();
  return m_defaultStartWidth;
}

void OdDb2dPolyline::setDefaultStartWidth(double width) {
  assertWriteEnabled();
  m_defaultStartWidth = width;
}

double OdDb2dPolyline::defaultEndWidth() const {
  assertReadEnabled();
  return m_defaultEndWidth;
}

void OdDb2dPolyline::setDefaultEndWidth(double width) {
  assertWriteEnabled();
  m_defaultEndWidth = width;
}

double OdDb2dPolyline::elevation() const {
  assertReadEnabled();
  return m_elevation;
}

void OdDb2dPolyline::setElevation(double elevation) {
  assertWriteEnabled();
  m_elevation = elevation;
}

bool OdDb2dPolyline::hasBulges() const {
  for (const OdDb2dVertexPtr& vertex : m_vertices) {
    if (vertex->bulge() != 0.0) return true;
  }
  return false;
}

void OdDb2dPolyline::path(std::vector<OdGePoint2d>& points, std::vector<double>& bulges) const {
  for (const OdDb2dVertexPtr& vertex : m_vertices) {
    points.push_back(vertex->position().convert2d());
    bulges.push_back(vertex->bulge());
  }
}

OdResult OdDb2dPolyline::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (!plane.isSimilarity() && hasBulges()) return eCannotScaleNonUniformly;
  for (const OdDb2dVertexPtr& vertex : m_vertices) {
    const OdGePoint3d mapped = plane.mapOcsPoint(vertex->position().convert2d(), m_elevation);
    vertex->setPosition(OdGePoint3d(mapped.x, mapped.y, mapped.z));
    if (plane.isReversed()) vertex->setBulge(-vertex->bulge());
    vertex->setStartWidth(vertex->startWidth() * plane.scale());
    vertex->setEndWidth(vertex->endWidth() * plane.scale());
    if (vertex->flags() & OdDb2dVertex::kTangentUsed)
      vertex->setTangent(OdGeAngle::normalize(plane.mapAngle(vertex->tangent())));
  }
  m_elevation = plane.mapOcsPoint(OdGePoint2d(), m_elevation).z;
  m_defaultStartWidth *= plane.scale();
  m_defaultEndWidth *= plane.scale();
  m_thickness *= plane.normalScale();
  m_normal = plane.newNormal();
  return eOk;
}

OdResult OdDb2dPolyline::getTransformedCopy(const OdGeMatrix3d& matrix, OdDbEntityPtr& copy) const {
  assertReadEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (plane.isSimilarity() || !hasBulges()) return OdDbEntity::getTransformedCopy(matrix, copy);
  std::vector<OdGePoint2d> points;
  std::vector<double> bulges;
  path(points, bulges);
  return SplineCopy::ofPath(this, points, bulges, m_closed, m_elevation, m_normal, matrix, copy);
}

OdResult OdDb2dPolyline::subGetGripPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  for (unsigned int i = 0; i < m_vertices.length(); ++i)
    points.append(vertexPosition(i));
  return eOk;
}

OdResult OdDb2dPolyline::subMoveGripPointsAt(const OdIntArray& indices,
                                             const OdGeVector3d& offset) {
  assertWriteEnabled();
  const OdGeVector3d local = OdGeMatrix3d::worldToPlane(m_normal) * offset;
  bool all = !m_vertices.isEmpty();
  for (unsigned int i = 0; i < m_vertices.length(); ++i)
    all = all && indices.contains(static_cast<int>(i));
  // Only a move of every vertex may lift the plane; single vertices stay in it.
  const OdGeVector3d shift(local.x, local.y, all ? local.z : 0.0);
  for (unsigned int i = 0; i < m_vertices.length(); ++i) {
    if (!indices.contains(static_cast<int>(i))) continue;
    const OdDb2dVertexPtr& vertex = m_vertices[i];
    vertex->setPosition(vertex->position() + shift);
  }
  m_elevation += shift.z;
  return eOk;
}

OdResult OdDb2dPolyline::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  extents = OdGeExtents3d();
  if (m_vertices.isEmpty()) return eInvalidExtents;
  std::vector<OdGePoint2d> points;
  std::vector<double> bulges;
  path(points, bulges);
  ArcGeometry::addPathExtents(points, bulges, m_closed, m_elevation, m_normal, extents);
  if (m_thickness != 0.0) extents.expandBy(m_normal * m_thickness);
  return eOk;
}

OdResult OdDb2dPolyline::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult res = OdDbEntity::dwgInFields(filer);
  if (res != eOk) return res;
  const int type = filer->rdInt16();
  if (type < kSimplePoly || type > kCubicSplinePoly) return eDwgObjectImproperlyRead;
  m_type = static_cast<PolyType>(type);
  m_closed = filer->rdBool();
  m_plinegen = filer->rdBool();
  m_defaultStartWidth = filer->rdDouble();
  m_defaultEndWidth = filer->rdDouble();
  m_elevation = filer->rdDouble();
  m_thickness = filer->rdDouble();
  m_normal = filer->rdVector3d();
  return m_vertices.dwgIn(filer);
}

void OdDb2dPolyline::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrInt16(static_cast<int16_t>(m_type));
  filer->wrBool(m_closed);
  filer->wrBool(m_plinegen);
  filer->wrDouble(m_defaultStartWidth);
  filer->wrDouble(m_defaultEndWidth);
  filer->wrDouble(m_elevation);
  filer->wrDouble(m_thickness);
  filer->wrVector3d(m_normal);
  m_vertices.dwgOut(filer);
}

OdResult OdDb2dPolyline::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult res = OdDbEntity::dxfInFields(filer);
  if (res != eOk) return res;
  EntityFiling::requireSubclass(filer, this, "AcDb2dPolyline");
  int flags = 0;
  int curveType = 0;
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    OdGePoint3d point;
    switch (filer->nextItem()) {
      case 10:
        point = filer->rdPoint3d();
        m_elevation = point.z;
        break;
      case 39:
        m_thickness = filer->rdDouble();
        break;
      case 70:
        flags = filer->rdInt16();
        break;
      case 40:
        m_defaultStartWidth = filer->rdDouble();
        break;
      case 41:
        m_defaultEndWidth = filer->rdDouble();
        break;
      case 75:
        curveType = filer->rdInt16();
        break;
      case 210:
        m_normal = EntityFiling::rdNormal(filer);
        break;
      default:
        break;
    }
  }
  m_closed = (flags & kClosedFlag) != 0;
  m_plinegen = (flags & kPlinegenFlag) != 0;
  m_type = kSimplePoly;
  if (flags & kCurveFitFlag) m_type = kFitCurvePoly;
  if (flags & kSplineFitFlag)
    m_type = curveType == kQuadraticCurve ? kQuadSplinePoly : kCubicSplinePoly;
  return eOk;
}

void OdDb2dPolyline::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDb2dPolyline");
  filer->wrInt16(66, 1);
  filer->wrPoint3d(10, OdGePoint3d(0.0, 0.0, m_elevation));
  if (m_thickness != 0.0) filer->wrDouble(39, m_thickness);
  int flags = (m_closed ? kClosedFlag : 0) | (m_plinegen ? kPlinegenFlag : 0);
  if (m_type == kFitCurvePoly) flags |= kCurveFitFlag;
  if (m_type == kQuadSplinePoly || m_type == kCubicSplinePoly) flags |= kSplineFitFlag;
  filer->wrInt16(70, static_cast<int16_t>(flags));
  if (m_defaultStartWidth != 0.0) filer->wrDouble(40, m_defaultStartWidth);
  if (m_defaultEndWidth != 0.0) filer->wrDouble(41, m_defaultEndWidth);
  if (m_type == kQuadSplinePoly) filer->wrInt16(75, kQuadraticCurve);
  if (m_type == kCubicSplinePoly) filer->wrInt16(75, kCubicCurve);
  if (!m_normal.isEqualTo(OdGeVector3d::kZAxis)) filer->wrVector3d(210, m_normal);
}
