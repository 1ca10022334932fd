#include "platform/db/entities/OdDb3dPolyline.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDb3dPolyline, OdDbEntity, "POLYLINE", "", 0)

namespace {
constexpr int kClosedFlag = 1;
constexpr int kSplineFitFlag = 4;
constexpr int k3dPolylineFlag = 8;
constexpr int kQuadraticCurve = 5;
constexpr int kCubicCurve = 6;
}  // namespace

OdDb3dPolyline::OdDb3dPolyline() = default;

OdDb3dPolyline::PolyType OdDb3dPolyline::polyType() const {
  assertReadEnabled();
  return m_type;
}

void OdDb3dPolyline::setPolyType(PolyType type) {
  assertWriteEnabled();
  m_type = type;
}

OdResult OdDb3dPolyline::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eDegenerateGeometry;
  for (const OdDb3dPolylineVertexPtr& vertex : m_vertices)
    vertex->transformBy(matrix);
  return eOk;
}

OdResult OdDb3dPolyline::subGetGripPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  for (const OdDb3dPolylineVertexPtr& vertex : m_vertices)
    points.append(vertex->position());
  return eOk;
}

OdResult OdDb3dPolyline::subMoveGripPointsAt(const OdIntArray& indices,
                                             const OdGeVector3d& offset) {
  assertWriteEnabled();
  for (int index : indices) {
    if (index < 0 || static_cast<unsigned int>(index) >= m_vertices.length()) continue;
    const OdDb3dPolylineVertexPtr& vertex = m_vertices[index];
    vertex->setPosition(vertex->position() + offset);
  }
  return eOk;
}

OdResult OdDb3dPolyline::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  extents = OdGeExtents3d();
  for (const OdDb3dPolylineVertexPtr& vertex : m_vertices)
    extents.addPoint(vertex->position());
  return m_vertices.isEmpty() ? eInvalidExtents : eOk;
}

OdResult OdDb3dPolyline::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult res = OdDbEntity::dwgInFields(filer);
  if (res != eOk) return res;
  const int type = filer->rdInt16();
  if (type < kSimplePoly || type > kCubicSplinePoly) return eDwgObjectImproperlyRead;
  m_type = static_cast<PolyType>(type);
  m_closed = filer->rdBool();
  return m_vertices.dwgIn(filer);
}

void OdDb3dPolyline::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrInt16(static_cast<int16_t>(m_type));
  filer->wrBool(m_closed);
  m_vertices.dwgOut(filer);
}

OdResult OdDb3dPolyline::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult res = OdDbEntity::dxfInFields(filer);
  if (res != eOk) return res;
  EntityFiling::requireSubclass(filer, this, "AcDb3dPolyline");
  int flags = 0;
  int curveType = 0;
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    switch (filer->nextItem()) {
      case 70:
        flags = filer->rdInt16();
        break;
      case 75:
        curveType = filer->rdInt16();
        break;
      default:
        break;
    }
  }
  m_closed = (flags & kClosedFlag) != 0;
  m_type = kSimplePoly;
  if (flags & kSplineFitFlag)
    m_type = curveType == kQuadraticCurve ? kQuadSplinePoly : kCubicSplinePoly;
  return filer->filerStatus();
}

void OdDb3dPolyline::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDb3dPolyline");
  filer->wrInt16(66, 1);
  filer->wrPoint3d(10, OdGePoint3d::kOrigin);
  const int flags =
      k3dPolylineFlag | (m_closed ? kClosedFlag : 0) | (m_type != kSimplePoly ? kSplineFitFlag : 0);
  filer->wrInt16(70, static_cast<int16_t>(flags));
  if (m_type == kQuadSplinePoly) filer->wrInt16(75, kQuadraticCurve);
  if (m_type == kCubicSplinePoly) filer->wrInt16(75, kCubicCurve);
}
