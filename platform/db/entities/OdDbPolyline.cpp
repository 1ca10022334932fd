#include "platform/db/entities/OdDbPolyline.h"

#include <cmath>
#include <vector>

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/entities/SplineCopy.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/ge/ArcGeometry.h"
#include "platform/ge/PlanarTransform.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbPolyline, OdDbEntity, "LWPOLYLINE", "", 0)

namespace {
constexpr int kClosedFlag = 1;
constexpr int kPlinegenFlag = 128;
}  // namespace

const OdDbPolyline::Vertex& OdDbPolyline::vertex(unsigned int index, const char* where) const {
  if (index >= m_vertices.length())
    throw OdError(eInvalidIndex,
                  OdString::format("%s: vertex %u of %u", where, index, m_vertices.length()).str());
  return m_vertices[index];
}

unsigned int OdDbPolyline::numVerts() const {
  assertReadEnabled();
  return m_vertices.length();
}

void OdDbPolyline::addVertexAt(unsigned int index, const OdGePoint2d& point, double bulge,
                               double startWidth, double endWidth) {
  if (index > m_vertices.length())
    throw OdError(eInvalidIndex, "OdDbPolyline::addVertexAt: index past the end");
  assertWriteEnabled();
  m_vertices.insertAt(index, Vertex{point, bulge, startWidth, endWidth});
}

void OdDbPolyline::removeVertexAt(unsigned int index) {
  vertex(index, "OdDbPolyline::removeVertexAt");
  assertWriteEnabled();
  m_vertices.removeAt(index);
}

OdGePoint2d OdDbPolyline::getPoint2dAt(unsigned int index) const {
  assertReadEnabled();
  return vertex(index, "OdDbPolyline::getPoint2dAt").point;
}

OdGePoint3d OdDbPolyline::getPoint3dAt(unsigned int index) const {
  assertReadEnabled();
  const OdGePoint2d& point = vertex(index, "OdDbPolyline::getPoint3dAt").point;
  return EntityFiling::toWcs(m_normal, point.convert3d(m_elevation));
}

void OdDbPolyline::setPointAt(unsigned int index, const OdGePoint2d& point) {
  vertex(index, "OdDbPolyline::setPointAt");
  assertWriteEnabled();
  m_vertices[index].point = point;
}

double OdDbPolyline::getBulgeAt(unsigned int index) const {
  assertReadEnabled();
  return vertex(index, "OdDbPolyline::getBulgeAt").bulge;
}

void OdDbPolyline::setBulgeAt(unsigned int index, double bulge) {
  vertex(index, "OdDbPolyline::setBulgeAt");
  assertWriteEnabled();
  m_vertices[index].bulge = bulge;
}

void OdDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const {
  assertReadEnabled();
  const Vertex& v = vertex(index, "OdDbPolyline::getWidthsAt");
  startWidth = v.startWidth;
  endWidth = v.endWidth;
}

void OdDbPolyline::setWidthsAt(unsigned int index, double startWidth, double endWidth) {
  vertex(index, "OdDbPolyline::setWidthsAt");
  assertWriteEnabled();
  m_vertices[index].startWidth = startWidth;
  m_vertices[index].endWidth = endWidth;
}

bool OdDbPolyline::hasConstantWidth() const {
  assertReadEnabled();
  for (const Vertex& v : m_vertices) {
    if (v.startWidth != m_vertices[0].startWidth || v.endWidth != m_vertices[0].startWidth)
      return false;
  }
  return true;
}

double OdDbPolyline::getConstantWidth() const {
  return hasConstantWidth() && !m_vertices.isEmpty() ? m_vertices[0].startWidth : 0.0;
}

void OdDbPolyline::setConstantWidth(double width) {
  assertWriteEnabled();
  for (Vertex& v : m_vertices)
    v.startWidth = v.endWidth = width;
}

bool OdDbPolyline::isClosed() const {
  assertReadEnabled();
  return m_closed;
}

void OdDbPolyline::setClosed(bool closed) {
  assertWriteEnabled();
  m_closed = closed;
}

bool OdDbPolyline::hasBulges() const {
  assertReadEnabled();
  for (const Vertex& v : m_vertices) {
    if (v.bulge != 0.0) return true;
  }
  return false;
}

double OdDbPolyline::elevation() const {
  assertReadEnabled();
  return m_elevation;
}

void OdDbPolyline::setElevation(double elevation) {
  assertWriteEnabled();
  m_elevation = elevation;
}

OdResult OdDbPolyline::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (!plane.isSimilarity() && hasBulges()) return eCannotScaleNonUniformly;
  double elevation = m_elevation;
  for (Vertex& v : m_vertices) {
    const OdGePoint3d mapped = plane.mapOcsPoint(v.point, m_elevation);
    v.point = mapped.convert2d();
    elevation = mapped.z;
    if (plane.isReversed()) v.bulge = -v.bulge;
    v.startWidth *= plane.scale();
    v.endWidth *= plane.scale();
  }
  m_elevation = m_vertices.isEmpty() ? plane.mapOcsPoint(OdGePoint2d(), m_elevation).z : elevation;
  m_thickness *= plane.normalScale();
  m_normal = plane.newNormal();
  return eOk;
}

OdResult OdDbPolyline::getTransformedCopy(const OdGeMatrix3d& matrix, OdDbEntityPtr& copy) const {
  assertReadEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (plane.isSimilarity() || !hasBulges()) return OdDbEntity::getTransformedCopy(matrix, copy);
  std::vector<OdGePoint2d> points;
  std::vector<double> bulges;
  for (const Vertex& v : m_vertices) {
    points.push_back(v.point);
    bulges.push_back(v.bulge);
  }
  return SplineCopy::ofPath(this, points, bulges, m_closed, m_elevation, m_normal, matrix, copy);
}

OdResult OdDbPolyline::getStretchPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  for (unsigned int i = 0; i < m_vertices.length(); ++i)
    points.append(getPoint3dAt(i));
  return eOk;
}

OdResult OdDbPolyline::moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  assertWriteEnabled();
  const OdGeVector3d local = OdGeMatrix3d::worldToPlane(m_normal) * offset;
  unsigned int moved = 0;
  for (unsigned int i = 0; i < m_vertices.length(); ++i) {
    if (!indices.contains(static_cast<int>(i))) continue;
    m_vertices[i].point += local.convert2d();
    ++moved;
  }
  // Only a move of every vertex may lift the plane; single vertices stay in it.
  if (moved > 0 && moved == m_vertices.length()) m_elevation += local.z;
  return eOk;
}

OdResult OdDbPolyline::subGetGripPoints(OdGePoint3dArray& points) const {
  return getStretchPoints(points);
}

OdResult OdDbPolyline::subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  return moveStretchPointsAt(indices, offset);
}

OdResult OdDbPolyline::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  extents = OdGeExtents3d();
  if (m_vertices.isEmpty()) return eInvalidExtents;
  std::vector<OdGePoint2d> points;
  std::vector<double> bulges;
  for (const Vertex& v : m_vertices) {
    points.push_back(v.point);
    bulges.push_back(v.bulge);
  }
  ArcGeometry::addPathExtents(points, bulges, m_closed, m_elevation, m_normal, extents);
  if (m_thickness != 0.0) extents.expandBy(m_normal * m_thickness);
  return eOk;
}

OdResult OdDbPolyline::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult res = OdDbEntity::dwgInFields(filer);
  if (res != eOk) return res;
  m_closed = filer->rdBool();
  m_plinegen = filer->rdBool();
  m_elevation = filer->rdDouble();
  m_thickness = filer->rdDouble();
  m_normal = filer->rdVector3d();
  const int count = filer->rdInt32();
  if (count < 0) return eDwgObjectImproperlyRead;
  m_vertices.clear();
  for (int i = 0; i < count; ++i) {
    Vertex v;
    v.point = filer->rdPoint2d();
    v.bulge = filer->rdDouble();
    v.startWidth = filer->rdDouble();
    v.endWidth = filer->rdDouble();
    m_vertices.append(v);
  }
  return eOk;
}

void OdDbPolyline::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrBool(m_closed);
  filer->wrBool(m_plinegen);
  filer->wrDouble(m_elevation);
  filer->wrDouble(m_thickness);
  filer->wrVector3d(m_normal);
  filer->wrInt32(static_cast<int32_t>(m_vertices.length()));
  for (const Vertex& v : m_vertices) {
    filer->wrPoint2d(v.point);
    filer->wrDouble(v.bulge);
    filer->wrDouble(v.startWidth);
    filer->wrDouble(v.endWidth);
  }
}

OdResult OdDbPolyline::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult res = OdDbEntity::dxfInFields(filer);
  if (res != eOk) return res;
  EntityFiling::requireSubclass(filer, this, "AcDbPolyline");
  m_vertices.clear();
  double constantWidth = 0.0;
  bool hasConstantWidth = false;
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    const int code = filer->nextItem();
    if ((code == 40 || code == 41 || code == 42) && m_vertices.isEmpty()) {
      throw OdError(eBadDxfSequence, describe().str() +
                                         ": vertex data before the first vertex at " +
                                         filer->describePosition().str());
    }
    switch (code) {
      case 70: {
        const int flags = filer->rdInt16();
        m_closed = (flags & kClosedFlag) != 0;
        m_plinegen = (flags & kPlinegenFlag) != 0;
        break;
      }
      case 43:
        constantWidth = filer->rdDouble();
        hasConstantWidth = true;
        break;
      case 38:
        m_elevation = filer->rdDouble();
        break;
      case 39:
        m_thickness = filer->rdDouble();
        break;
      case 10: {
        Vertex v;
        v.point = filer->rdPoint2d();
        m_vertices.append(v);
        break;
      }
      case 40:
        m_vertices.last().startWidth = filer->rdDouble();
        break;
      case 41:
        m_vertices.last().endWidth = filer->rdDouble();
        break;
      case 42:
        m_vertices.last().bulge = filer->rdDouble();
        break;
      case 210:
        m_normal = EntityFiling::rdNormal(filer);
        break;
      case 90:
        filer->rdInt32();  // the vertex count follows from the vertices
        break;
      default:
        break;
    }
  }
  if (hasConstantWidth) {
    for (Vertex& v : m_vertices)
      v.startWidth = v.endWidth = constantWidth;
  }
  return eOk;
}

void OdDbPolyline::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbPolyline");
  filer->wrInt32(90, static_cast<int32_t>(m_vertices.length()));
  filer->wrInt16(
      70, static_cast<int16_t>((m_closed ? kClosedFlag : 0) | (m_plinegen ? kPlinegenFlag : 0)));
  const bool constant = hasConstantWidth();
  if (constant) filer->wrDouble(43, getConstantWidth());
  if (m_elevation != 0.0) filer->wrDouble(38, m_elevation);
  if (m_thickness != 0.0) filer->wrDouble(39, m_thickness);
  for (const Vertex& v : m_vertices) {
    filer->wrPoint2d(10, v.point);
    if (!constant) {
      filer->wrDouble(40, v.startWidth);
      filer->wrDouble(41, v.endWidth);
    }
    if (v.bulge != 0.0) filer->wrDouble(42, v.bulge);
  }
  if (!m_normal.isEqualTo(OdGeVector3d::kZAxis)) filer->wrVector3d(210, m_normal);
}
