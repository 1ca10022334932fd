// How a transformation acts on the plane of a planar entity: the new normal, the scale in the
// plane, whether shapes keep their form there and whether their turning sense flips.
#pragma once

#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePoint2d.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeVector3d.h"

class PlanarTransform {
 public:
  // normal is the entity's plane normal (any length but zero).
  PlanarTransform(const OdGeMatrix3d& matrix, const OdGeVector3d& normal);

  // False when the matrix is singular or flattens the plane: the entity cannot follow it.
  bool isValid() const { return m_valid; }
  // True when the plane is scaled alike in every direction, so circles stay circles.
  bool isSimilarity() const { return m_similarity; }
  // True for mirror images. The new normal is then chosen as the image of the old one (so a 2-D
  // mirror keeps +Z), and counter-clockwise turns in the old plane become clockwise about it.
  bool isReversed() const { return m_reversed; }
  // Length factor within the plane (the geometric mean of the axis factors when not similar).
  double scale() const { return m_scale; }
  // Factor along the normal, for thicknesses; negative when the normal's image points away.
  double normalScale() const { return m_normalScale; }
  const OdGeVector3d& newNormal() const { return m_newNormal; }

  // The direction at angle in the old object system, as an angle in the new one.
  double mapAngle(double angle) const;
  // An object-system point (x, y, elevation) of the old plane, in the new object system.
  OdGePoint3d mapOcsPoint(const OdGePoint3d& ocs) const { return m_ocsMap * ocs; }
  OdGePoint3d mapOcsPoint(const OdGePoint2d& ocs, double elevation) const {
    return mapOcsPoint(ocs.convert3d(elevation));
  }

 private:
  // Old object coordinates to new object coordinates.
  OdGeMatrix3d m_ocsMap;
  OdGeVector3d m_newNormal;
  double m_scale = 1.0;
  double m_normalScale = 1.0;
  bool m_valid = false;
  bool m_similarity = false;
  bool m_reversed = false;
};
