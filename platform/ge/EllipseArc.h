// An elliptical (or circular) arc in space in parametric form, point(t) = center + major cos t +
// minor sin t for t from start to end counter-clockwise: the shared geometry of arcs, circles,
// ellipses and polyline arc segments under transformation and for extents.
#pragma once

#include "platform/ge/OdGeExtents3d.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeVector3d.h"

class EllipseArc {
 public:
  // The axes need not be perpendicular; end is taken as start plus the counter-clockwise sweep
  // (a sweep of zero or a full turn is the whole curve).
  EllipseArc(const OdGePoint3d& center, const OdGeVector3d& majorAxis,
             const OdGeVector3d& minorAxis, double startParam, double endParam);
  // A circular arc of the plane with this normal, angles measured from the plane's X axis.
  static EllipseArc circular(const OdGePoint3d& center, const OdGeVector3d& normal, double radius,
                             double startAngle, double endAngle);

  const OdGePoint3d& center() const { return m_center; }
  const OdGeVector3d& majorAxis() const { return m_major; }
  const OdGeVector3d& minorAxis() const { return m_minor; }
  double startParam() const { return m_start; }
  double endParam() const { return m_start + m_sweep; }
  double sweep() const { return m_sweep; }
  bool isFull() const;
  OdGePoint3d pointAt(double param) const;
  bool containsParam(double param) const;

  // The image under an affine matrix in principal form: perpendicular axes, the major one the
  // longer. For a mirroring matrix (reversed) the minor axis and the parameters are reflected so
  // that the normal follows the image of the old normal and the sweep stays counter-clockwise.
  // False when the matrix collapses the curve.
  bool transformedBy(const OdGeMatrix3d& matrix, EllipseArc& result) const;
  // The exact box: the end points and every axis-extreme point inside the sweep.
  void addToExtents(OdGeExtents3d& extents) const;

 private:
  OdGePoint3d m_center;
  OdGeVector3d m_major;
  OdGeVector3d m_minor;
  double m_start;
  double m_sweep;
};
