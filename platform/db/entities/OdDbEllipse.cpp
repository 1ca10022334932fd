#include "platform/db/entities/OdDbEllipse.h"

#include <algorithm>
#include <cmath>

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/entities/FieldTable.h"
#include "platform/ge/EllipseArc.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbEllipse, OdDbEntity, "ELLIPSE", "", 0)

// Offsets into a class with a virtual table: GCC supports them for classes without virtual bases
// and says so by a warning.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

namespace {
// The stored range: start in [0, 2*pi), end after it by the sweep, a full turn ending at
// start + 2*pi.
void normalizeRange(double& start, double& end) {
  const EllipseArc range(OdGePoint3d::kOrigin, OdGeVector3d::kXAxis, OdGeVector3d::kYAxis, start,
                         end);
  start = range.startParam();
  end = range.isFull() ? start + OdGeAngle::k2Pi : OdGeAngle::normalize(range.endParam());
}
}  // namespace

void OdDbEllipse::set(const OdGePoint3d& center, const OdGeVector3d& normal,
                      const OdGeVector3d& majorAxis, double radiusRatio, double startParam,
                      double endParam) {
  if (normal.isZeroLength() || majorAxis.isZeroLength() ||
      !majorAxis.isPerpendicularTo(normal, OdGeTol(1e-10, 1e-9)) ||
      !(radiusRatio > 0.0 && radiusRatio <= 1.0 + 1e-12)) {
    throw OdError(eInvalidInput,
                  "OdDbEllipse::set: need a non-zero major axis perpendicular to the normal and a "
                  "ratio in (0, 1]");
  }
  assertWriteEnabled();
  m_center = center;
  m_normal = normal.normal();
  // Drop any tilt out of the plane left by rounding.
  m_major = majorAxis - m_normal * majorAxis.dotProduct(m_normal);
  m_ratio = std::min(radiusRatio, 1.0);
  m_startParam = startParam;
  m_endParam = endParam;
  normalizeRange(m_startParam, m_endParam);
}

OdGePoint3d OdDbEllipse::center() const {
  assertReadEnabled();
  return m_center;
}

void OdDbEllipse::setCenter(const OdGePoint3d& center) {
  assertWriteEnabled();
  m_center = center;
}

OdGeVector3d OdDbEllipse::normal() const {
  assertReadEnabled();
  return m_normal;
}

OdGeVector3d OdDbEllipse::majorAxis() const {
  assertReadEnabled();
  return m_major;
}

OdGeVector3d OdDbEllipse::minorAxis() const {
  assertReadEnabled();
  return m_normal.crossProduct(m_major) * m_ratio;
}

double OdDbEllipse::radiusRatio() const {
  assertReadEnabled();
  return m_ratio;
}

void OdDbEllipse::setRadiusRatio(double ratio) {
  if (!(ratio > 0.0 && ratio <= 1.0))
    throw OdError(eInvalidInput, "OdDbEllipse::setRadiusRatio: ratio must be in (0, 1]");
  assertWriteEnabled();
  m_ratio = ratio;
}

double OdDbEllipse::startParam() const {
  assertReadEnabled();
  return m_startParam;
}

void OdDbEllipse::setStartParam(double param) {
  assertWriteEnabled();
  m_startParam = param;
  normalizeRange(m_startParam, m_endParam);
}

double OdDbEllipse::endParam() const {
  assertReadEnabled();
  return m_endParam;
}

void OdDbEllipse::setEndParam(double param) {
  assertWriteEnabled();
  m_endParam = param;
  normalizeRange(m_startParam, m_endParam);
}

bool OdDbEllipse::isClosed() const {
  assertReadEnabled();
  return std::fabs(m_endParam - m_startParam - OdGeAngle::k2Pi) <= OdGeAngle::kTolerance;
}

OdGePoint3d OdDbEllipse::pointAtParam(double param) const {
  assertReadEnabled();
  return m_center + m_major * std::cos(param) + minorAxis() * std::sin(param);
}

OdResult OdDbEllipse::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eDegenerateGeometry;
  EllipseArc image(m_center, m_major, minorAxis(), m_startParam, m_endParam);
  if (!image.transformedBy(matrix, image)) return eDegenerateGeometry;
  m_center = image.center();
  m_major = image.majorAxis();
  m_normal = m_major.crossProduct(image.minorAxis()).normal();
  m_ratio = std::min(image.minorAxis().length() / m_major.length(), 1.0);
  m_startParam = image.startParam();
  m_endParam = image.endParam();
  normalizeRange(m_startParam, m_endParam);
  return eOk;
}

OdResult OdDbEllipse::getStretchPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  points.append(m_center);
  return eOk;
}

OdResult OdDbEllipse::moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  assertWriteEnabled();
  if (indices.contains(0)) m_center += offset;
  return eOk;
}

OdResult OdDbEllipse::subGetGripPoints(OdGePoint3dArray& points) const {
  return getStretchPoints(points);
}

OdResult OdDbEllipse::subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  return moveStretchPointsAt(indices, offset);
}

OdResult OdDbEllipse::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  extents = OdGeExtents3d();
  EllipseArc(m_center, m_major, minorAxis(), m_startParam, m_endParam).addToExtents(extents);
  return eOk;
}

OdResult OdDbEllipse::dxfInFields(OdDbDxfFiler* filer) {
  // A record without its major axis is refused like one with a zero axis.
  m_major = OdGeVector3d();
  const OdResult res = OdDbEntity::dxfInFields(filer);
  if (res != eOk) return res;
  if (m_major.isZeroLength() || !(m_ratio > 0.0 && m_ratio <= 1.0 + 1e-12)) return eInvalidInput;
  m_ratio = std::min(m_ratio, 1.0);
  normalizeRange(m_startParam, m_endParam);
  return eOk;
}

FieldTable OdDbEllipse::fieldTable() const {
  static constexpr auto kFields = FieldTable::compile({
      FieldTable::marker("AcDbEllipse"),
      FieldTable::field(10, FieldTable::kPoint, offsetof(OdDbEllipse, m_center)),
      FieldTable::field(11, FieldTable::kVector, offsetof(OdDbEllipse, m_major)),
      FieldTable::field(210, FieldTable::kNormal, offsetof(OdDbEllipse, m_normal)),
      FieldTable::field(40, FieldTable::kReal, offsetof(OdDbEllipse, m_ratio)),
      FieldTable::field(41, FieldTable::kReal, offsetof(OdDbEllipse, m_startParam)),
      FieldTable::field(42, FieldTable::kReal, offsetof(OdDbEllipse, m_endParam)),
  });
  return FieldTable(kFields, this);
}
