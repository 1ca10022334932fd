#include "platform/db/entities/OdDbSpline.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/ge/NurbsCurve.h"
#include "platform/ge/PlanarTransform.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbSpline, OdDbEntity, "SPLINE", "", 0)

namespace {
constexpr int kClosed = 1;
constexpr int kPeriodic = 2;
constexpr int kRational = 4;
constexpr int kPlanar = 8;
constexpr int kLinear = 16;

NurbsCurve curveOf(int degree, const OdGeDoubleArray& knots, const OdGePoint3dArray& points,
                   const OdGeDoubleArray& weights, bool rational) {
  return NurbsCurve(degree, knots.toStdVector(), points.toStdVector(),
                    rational ? weights.toStdVector() : std::vector<double>());
}

void checkIndex(int index, unsigned int count, const char* where) {
  if (index < 0 || static_cast<unsigned int>(index) >= count)
    throw OdError(eInvalidIndex, std::string(where) + ": index out of range");
}
}  // namespace

bool OdDbSpline::isConsistent() const {
  return curveOf(m_degree, m_knots, m_controlPoints, m_weights, m_rational).isValid();
}

void OdDbSpline::setNurbsData(int degree, bool rational, bool closed, bool periodic,
                              const OdGePoint3dArray& controlPoints, const OdGeDoubleArray& knots,
                              const OdGeDoubleArray& weights, double controlPtTol, double knotTol) {
  if (!curveOf(degree, knots, controlPoints, weights, rational).isValid())
    throw OdError(eInvalidInput,
                  "OdDbSpline::setNurbsData: degree, knots, control points and weights disagree");
  assertWriteEnabled();
  m_degree = degree;
  m_rational = rational;
  m_closed = closed;
  m_periodic = periodic;
  m_controlPoints = controlPoints;
  m_knots = knots;
  m_weights = rational ? weights : OdGeDoubleArray();
  m_controlPtTol = controlPtTol;
  m_knotTol = knotTol;
  m_fitPoints.clear();
  m_startTangent = m_endTangent = OdGeVector3d();
}

bool OdDbSpline::refit() {
  NurbsCurve curve;
  if (!NurbsCurve::interpolate(m_fitPoints.toStdVector(), m_startTangent, m_endTangent, curve))
    return false;
  m_degree = curve.degree();
  m_rational = false;
  m_periodic = false;
  m_controlPoints = OdGePoint3dArray(curve.controlPoints());
  m_knots = OdGeDoubleArray(curve.knots());
  m_weights.clear();
  return true;
}

void OdDbSpline::setFitData(const OdGePoint3dArray& fitPoints, const OdGeVector3d& startTangent,
                            const OdGeVector3d& endTangent, double fitTolerance) {
  NurbsCurve curve;
  if (!NurbsCurve::interpolate(fitPoints.toStdVector(), startTangent, endTangent, curve))
    throw OdError(eInvalidInput, "OdDbSpline::setFitData: need two or more distinct fit points");
  assertWriteEnabled();
  m_fitPoints = fitPoints;
  m_startTangent = startTangent.normal();
  m_endTangent = endTangent.normal();
  m_fitTol = fitTolerance;
  refit();
}

bool OdDbSpline::hasFitData() const {
  assertReadEnabled();
  return !m_fitPoints.isEmpty();
}

void OdDbSpline::purgeFitData() {
  assertWriteEnabled();
  m_fitPoints.clear();
  m_startTangent = m_endTangent = OdGeVector3d();
}

int OdDbSpline::degree() const {
  assertReadEnabled();
  return m_degree;
}

bool OdDbSpline::isRational() const {
  assertReadEnabled();
  return m_rational;
}

bool OdDbSpline::isClosed() const {
  assertReadEnabled();
  return m_closed;
}

bool OdDbSpline::isPeriodic() const {
  assertReadEnabled();
  return m_periodic;
}

int OdDbSpline::numControlPoints() const {
  assertReadEnabled();
  return static_cast<int>(m_controlPoints.length());
}

OdGePoint3d OdDbSpline::controlPointAt(int index) const {
  assertReadEnabled();
  checkIndex(index, m_controlPoints.length(), "OdDbSpline::controlPointAt");
  return m_controlPoints[index];
}

void OdDbSpline::setControlPointAt(int index, const OdGePoint3d& point) {
  checkIndex(index, m_controlPoints.length(), "OdDbSpline::setControlPointAt");
  assertWriteEnabled();
  m_controlPoints[index] = point;
  m_fitPoints.clear();
}

double OdDbSpline::weightAt(int index) const {
  assertReadEnabled();
  checkIndex(index, m_controlPoints.length(), "OdDbSpline::weightAt");
  return m_rational ? m_weights[index] : 1.0;
}

OdGeDoubleArray OdDbSpline::knots() const {
  assertReadEnabled();
  return m_knots;
}

int OdDbSpline::numFitPoints() const {
  assertReadEnabled();
  return static_cast<int>(m_fitPoints.length());
}

OdGePoint3d OdDbSpline::fitPointAt(int index) const {
  assertReadEnabled();
  checkIndex(index, m_fitPoints.length(), "OdDbSpline::fitPointAt");
  return m_fitPoints[index];
}

void OdDbSpline::setFitPointAt(int index, const OdGePoint3d& point) {
  checkIndex(index, m_fitPoints.length(), "OdDbSpline::setFitPointAt");
  OdGePoint3dArray moved = m_fitPoints;
  moved[index] = point;
  setFitData(moved, m_startTangent, m_endTangent, m_fitTol);
}

OdGeVector3d OdDbSpline::startFitTangent() const {
  assertReadEnabled();
  return m_startTangent;
}

OdGeVector3d OdDbSpline::endFitTangent() const {
  assertReadEnabled();
  return m_endTangent;
}

double OdDbSpline::fitTolerance() const {
  assertReadEnabled();
  return m_fitTol;
}

OdGeVector3d OdDbSpline::normal() const {
  assertReadEnabled();
  return m_normal;
}

void OdDbSpline::setNormal(const OdGeVector3d& normal) {
  assertWriteEnabled();
  m_normal = normal.normal();
}

OdGePoint3d OdDbSpline::evaluate(double param) const {
  assertReadEnabled();
  return curveOf(m_degree, m_knots, m_controlPoints, m_weights, m_rational).evaluate(param);
}

OdResult OdDbSpline::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eDegenerateGeometry;
  for (OdGePoint3d& point : m_controlPoints)
    point = matrix * point;
  for (OdGePoint3d& point : m_fitPoints)
    point = matrix * point;
  m_startTangent = (matrix * m_startTangent).normal();
  m_endTangent = (matrix * m_endTangent).normal();
  if (!m_normal.isZeroLength()) m_normal = PlanarTransform(matrix, m_normal).newNormal();
  return eOk;
}

OdResult OdDbSpline::getStretchPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  points.append(m_fitPoints.isEmpty() ? m_controlPoints : m_fitPoints);
  return eOk;
}

OdResult OdDbSpline::moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  assertWriteEnabled();
  OdGePoint3dArray& points = m_fitPoints.isEmpty() ? m_controlPoints : m_fitPoints;
  OdGePoint3dArray saved = points;
  for (int index : indices) {
    if (index >= 0 && static_cast<unsigned int>(index) < points.length()) points[index] += offset;
  }
  if (&points == &m_fitPoints && !refit()) {
    m_fitPoints = saved;
    return eDegenerateGeometry;
  }
  return eOk;
}

OdResult OdDbSpline::subGetGripPoints(OdGePoint3dArray& points) const {
  return getStretchPoints(points);
}

OdResult OdDbSpline::subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  return moveStretchPointsAt(indices, offset);
}

OdResult OdDbSpline::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  extents = OdGeExtents3d();
  const NurbsCurve curve = curveOf(m_degree, m_knots, m_controlPoints, m_weights, m_rational);
  if (!curve.isValid()) return eInvalidExtents;
  curve.addToExtents(extents);
  return eOk;
}

OdResult OdDbSpline::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult res = OdDbEntity::dwgInFields(filer);
  if (res != eOk) return res;
  m_degree = filer->rdInt16();
  m_rational = filer->rdBool();
  m_closed = filer->rdBool();
  m_periodic = filer->rdBool();
  m_normal = filer->rdVector3d();
  m_knotTol = filer->rdDouble();
  m_controlPtTol = filer->rdDouble();
  m_fitTol = filer->rdDouble();
  m_startTangent = filer->rdVector3d();
  m_endTangent = filer->rdVector3d();
  const int knotCount = filer->rdInt32();
  const int pointCount = filer->rdInt32();
  const int fitCount = filer->rdInt32();
  if (knotCount < 0 || pointCount < 0 || fitCount < 0) return eDwgObjectImproperlyRead;
  m_knots.clear();
  m_controlPoints.clear();
  m_weights.clear();
  m_fitPoints.clear();
  for (int i = 0; i < knotCount; ++i)
    m_knots.append(filer->rdDouble());
  for (int i = 0; i < pointCount; ++i) {
    m_controlPoints.append(filer->rdPoint3d());
    if (m_rational) m_weights.append(filer->rdDouble());
  }
  for (int i = 0; i < fitCount; ++i)
    m_fitPoints.append(filer->rdPoint3d());
  return isConsistent() ? eOk : eDwgObjectImproperlyRead;
}

void OdDbSpline::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrInt16(static_cast<int16_t>(m_degree));
  filer->wrBool(m_rational);
  filer->wrBool(m_closed);
  filer->wrBool(m_periodic);
  filer->wrVector3d(m_normal);
  filer->wrDouble(m_knotTol);
  filer->wrDouble(m_controlPtTol);
  filer->wrDouble(m_fitTol);
  filer->wrVector3d(m_startTangent);
  filer->wrVector3d(m_endTangent);
  filer->wrInt32(static_cast<int32_t>(m_knots.length()));
  filer->wrInt32(static_cast<int32_t>(m_controlPoints.length()));
  filer->wrInt32(static_cast<int32_t>(m_fitPoints.length()));
  for (double knot : m_knots)
    filer->wrDouble(knot);
  for (unsigned int i = 0; i < m_controlPoints.length(); ++i) {
    filer->wrPoint3d(m_controlPoints[i]);
    if (m_rational) filer->wrDouble(m_weights[i]);
  }
  for (const OdGePoint3d& point : m_fitPoints)
    filer->wrPoint3d(point);
}

OdResult OdDbSpline::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult res = OdDbEntity::dxfInFields(filer);
  if (res != eOk) return res;
  EntityFiling::requireSubclass(filer, this, "AcDbSpline");
  int flags = 0;
  m_knots.clear();
  m_controlPoints.clear();
  m_weights.clear();
  m_fitPoints.clear();
  m_normal = OdGeVector3d();
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    OdGePoint3d point;
    switch (filer->nextItem()) {
      case 210:
        m_normal = EntityFiling::rdNormal(filer);
        break;
      case 70:
        flags = filer->rdInt16();
        break;
      case 71:
        m_degree = filer->rdInt16();
        break;
      case 42:
        m_knotTol = filer->rdDouble();
        break;
      case 43:
        m_controlPtTol = filer->rdDouble();
        break;
      case 44:
        m_fitTol = filer->rdDouble();
        break;
      case 12:
        point = filer->rdPoint3d();
        m_startTangent = point.asVector().normal();
        break;
      case 13:
        point = filer->rdPoint3d();
        m_endTangent = point.asVector().normal();
        break;
      case 40:
        m_knots.append(filer->rdDouble());
        break;
      case 41:
        m_weights.append(filer->rdDouble());
        break;
      case 10:
        point = filer->rdPoint3d();
        m_controlPoints.append(point);
        break;
      case 11:
        point = filer->rdPoint3d();
        m_fitPoints.append(point);
        break;
      default:
        break;
    }
  }
  m_closed = (flags & kClosed) != 0;
  m_periodic = (flags & kPeriodic) != 0;
  m_rational = (flags & kRational) != 0 && !m_weights.isEmpty();
  if (!m_rational) m_weights.clear();
  if ((flags & kPlanar) == 0) m_normal = OdGeVector3d();
  if (m_controlPoints.isEmpty() && m_fitPoints.length() >= 2) {
    return refit() ? eOk : eInvalidInput;
  }
  return isConsistent() ? eOk : eInvalidInput;
}

void OdDbSpline::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbSpline");
  const bool planar = !m_normal.isZeroLength();
  if (planar) filer->wrVector3d(210, m_normal);
  const int flags = (m_closed ? kClosed : 0) | (m_periodic ? kPeriodic : 0) |
                    (m_rational ? kRational : 0) | (planar ? kPlanar : 0) |
                    (planar && m_degree == 1 ? kLinear : 0);
  filer->wrInt16(70, static_cast<int16_t>(flags));
  filer->wrInt16(71, static_cast<int16_t>(m_degree));
  filer->wrInt16(72, static_cast<int16_t>(m_knots.length()));
  filer->wrInt16(73, static_cast<int16_t>(m_controlPoints.length()));
  filer->wrInt16(74, static_cast<int16_t>(m_fitPoints.length()));
  filer->wrDouble(42, m_knotTol);
  filer->wrDouble(43, m_controlPtTol);
  if (!m_fitPoints.isEmpty()) {
    filer->wrDouble(44, m_fitTol);
    if (!m_startTangent.isZeroLength()) filer->wrPoint3d(12, m_startTangent.asPoint());
    if (!m_endTangent.isZeroLength()) filer->wrPoint3d(13, m_endTangent.asPoint());
  }
  for (double knot : m_knots)
    filer->wrDouble(40, knot);
  for (double weight : m_weights)
    filer->wrDouble(41, weight);
  for (const OdGePoint3d& point : m_controlPoints)
    filer->wrPoint3d(10, point);
  for (const OdGePoint3d& point : m_fitPoints)
    filer->wrPoint3d(11, point);
}
