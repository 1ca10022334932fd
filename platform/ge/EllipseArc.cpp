#include "platform/ge/EllipseArc.h"

#include <cmath>

#include "platform/ge/OdGeAngle.h"

namespace {
double sweepOf(double start, double end) {
  const double sweep = OdGeAngle::normalize(end - start);
  return sweep <= OdGeAngle::kTolerance ? OdGeAngle::k2Pi : sweep;
}
}  // namespace

EllipseArc::EllipseArc(const OdGePoint3d& center, const OdGeVector3d& majorAxis,
                       const OdGeVector3d& minorAxis, double startParam, double endParam)
    : m_center(center),
      m_major(majorAxis),
      m_minor(minorAxis),
      m_start(OdGeAngle::normalize(startParam)),
      m_sweep(sweepOf(startParam, endParam)) {}

EllipseArc EllipseArc::circular(const OdGePoint3d& center, const OdGeVector3d& normal,
                                double radius, double startAngle, double endAngle) {
  const OdGeMatrix3d axes = OdGeMatrix3d::planeToWorld(normal);
  return EllipseArc(center, axes.getCsXAxis() * radius, axes.getCsYAxis() * radius, startAngle,
                    endAngle);
}

bool EllipseArc::isFull() const {
  return std::fabs(m_sweep - OdGeAngle::k2Pi) <= OdGeAngle::kTolerance;
}

OdGePoint3d EllipseArc::pointAt(double param) const {
  return m_center + m_major * std::cos(param) + m_minor * std::sin(param);
}

bool EllipseArc::containsParam(double param) const {
  return isFull() || OdGeAngle::normalize(param - m_start) <= m_sweep + OdGeAngle::kTolerance;
}

bool EllipseArc::transformedBy(const OdGeMatrix3d& matrix, EllipseArc& result) const {
  const OdGeVector3d u = matrix * m_major;
  const OdGeVector3d v = matrix * m_minor;
  // The parameter shift t0 that makes the axes perpendicular, with the major axis at t0.
  const double t0 = 0.5 * std::atan2(2.0 * u.dotProduct(v), u.lengthSqrd() - v.lengthSqrd());
  const double c = std::cos(t0);
  const double s = std::sin(t0);
  const OdGeVector3d major = u * c + v * s;
  OdGeVector3d minor = v * c - u * s;
  if (major.isZeroLength() || minor.isZeroLength() ||
      major.crossProduct(minor).length() <= 1e-12 * major.lengthSqrd())
    return false;
  double start = m_start - t0;
  if (matrix.isMirroring()) {
    minor = -minor;
    start = -(start + m_sweep);
  }
  if (isFull()) start = 0.0;
  result = EllipseArc(matrix * m_center, major, minor, start, start + m_sweep);
  result.m_sweep = m_sweep;
  return true;
}

void EllipseArc::addToExtents(OdGeExtents3d& extents) const {
  if (!isFull()) {
    extents.addPoint(pointAt(m_start));
    extents.addPoint(pointAt(m_start + m_sweep));
  }
  const double majors[3] = {m_major.x, m_major.y, m_major.z};
  const double minors[3] = {m_minor.x, m_minor.y, m_minor.z};
  for (int axis = 0; axis < 3; ++axis) {
    const double extreme = std::atan2(minors[axis], majors[axis]);
    for (double param : {extreme, extreme + OdGeAngle::kPi}) {
      if (containsParam(param)) extents.addPoint(pointAt(param));
    }
  }
}
