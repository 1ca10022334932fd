// The data of a rotation parameter: a base point (0), a point on its radius at the base angle (1)
// and the rotated point (2), the angle value set, and the normal the angle turns about, current
// and updated.
#pragma once

#include "parameters/CJbCustBlockParameterImpl.h"
#include "platform/ge/OdGeVector3d.h"

class CJbCustBlockRotationParameterImpl : public CJbCustBlockParameterImpl {
 public:
  enum Point { kBase = 0, kReference = 1, kRotated = 2 };

  CJbCustBlockRotationParameterImpl();

  // The angle of the rotated point from the reference point, about the updated normal.
  double UpdatedAngle() const;
  // Puts the rotated point at `angle` from the reference point, keeping its radius.
  void PlaceAngle(double angle);

  OdGeVector3d m_currentNormal = OdGeVector3d::kZAxis;
  OdGeVector3d m_updatedNormal = OdGeVector3d::kZAxis;

 private:
  // The normal to turn about: the Z axis stands in for a degenerate one.
  OdGeVector3d Axis() const;
};
