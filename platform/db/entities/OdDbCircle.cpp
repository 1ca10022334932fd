#include "platform/db/entities/OdDbCircle.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/entities/FieldTable.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/PlanarTransform.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbCircle, OdDbEntity, "CIRCLE", "", 0)

OdGePoint3d OdDbCircle::center() const {
  assertReadEnabled();
  return m_shape.center;
}

void OdDbCircle::setCenter(const OdGePoint3d& center) {
  assertWriteEnabled();
  m_shape.center = center;
}

double OdDbCircle::radius() const {
  assertReadEnabled();
  return m_shape.radius;
}

void OdDbCircle::setRadius(double radius) {
  assertWriteEnabled();
  m_shape.setRadius(radius, this);
}

double OdDbCircle::thickness() const {
  assertReadEnabled();
  return m_shape.thickness;
}

void OdDbCircle::setThickness(double thickness) {
  assertWriteEnabled();
  m_shape.thickness = thickness;
}

OdGeVector3d OdDbCircle::normal() const {
  assertReadEnabled();
  return m_shape.normal;
}

void OdDbCircle::setNormal(const OdGeVector3d& normal) {
  assertWriteEnabled();
  m_shape.setNormal(normal, this);
}

OdResult OdDbCircle::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  const PlanarTransform plane(matrix, m_shape.normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (!plane.isSimilarity()) return eCannotScaleNonUniformly;
  m_shape.follow(matrix, plane);
  return eOk;
}

OdResult OdDbCircle::getTransformedCopy(const OdGeMatrix3d& matrix, OdDbEntityPtr& copy) const {
  assertReadEnabled();
  const PlanarTransform plane(matrix, m_shape.normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (plane.isSimilarity()) return OdDbEntity::getTransformedCopy(matrix, copy);
  return CircularShape::ellipseImage(this, m_shape.arc(0.0, OdGeAngle::k2Pi), true, matrix, copy);
}

OdResult OdDbCircle::getStretchPoints(OdGePoint3dArray&) const {
  assertReadEnabled();
  return eOk;
}

OdResult OdDbCircle::moveStretchPointsAt(const OdIntArray&, const OdGeVector3d&) {
  assertWriteEnabled();
  return eOk;
}

OdResult OdDbCircle::subGetGripPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  const OdGePoint3d& center = m_shape.center;
  const OdGeMatrix3d axes = OdGeMatrix3d::planeToWorld(m_shape.normal);
  const OdGeVector3d x = axes.getCsXAxis() * m_shape.radius;
  const OdGeVector3d y = axes.getCsYAxis() * m_shape.radius;
  points.append(center);
  points.append(center + x);
  points.append(center + y);
  points.append(center - x);
  points.append(center - y);
  return eOk;
}

OdResult OdDbCircle::subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  assertWriteEnabled();
  for (int index : indices) {
    if (index == 0) {
      m_shape.center += offset;
      return eOk;
    }
  }
  OdGePoint3dArray grips;
  subGetGripPoints(grips);
  for (int index : indices) {
    if (index < 1 || index > 4) continue;
    const double radius = (grips[index] + offset).distanceTo(m_shape.center);
    if (radius <= OdGeContext::gTol.equalPoint()) return eDegenerateGeometry;
    m_shape.radius = radius;
    return eOk;
  }
  return eOk;
}

OdResult OdDbCircle::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  extents = OdGeExtents3d();
  m_shape.addExtents(m_shape.arc(0.0, OdGeAngle::k2Pi), extents);
  return eOk;
}

OdResult OdDbCircle::dxfInFields(OdDbDxfFiler* filer) {
  return m_shape.checkRead(OdDbEntity::dxfInFields(filer));
}

FieldTable OdDbCircle::fieldTable() const {
  return m_shape.fieldTable();
}
