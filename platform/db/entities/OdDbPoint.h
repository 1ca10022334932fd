// A point marker at a world position.
#pragma once

#include "platform/db/entities/ExtrudedEntity.h"

class OdDbPoint : public ExtrudedEntity {
  ODRX_DECLARE_MEMBERS(OdDbPoint);

 public:
  OdDbPoint() = default;

  OdGePoint3d position() const;
  void setPosition(const OdGePoint3d& position);
  // The angle of the marker's X axis in its object coordinate system.
  double ecsRotation() const;
  void setEcsRotation(double angle);

  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  // Stretch and grip point: the position (0).
  OdResult getStretchPoints(OdGePoint3dArray& points) const override;
  OdResult moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  OdResult subGetGripPoints(OdGePoint3dArray& points) const override;
  OdResult subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

 protected:
  FieldTable fieldTable() const override;

 private:
  OdGePoint3d m_position;
  double m_ecsRotation = 0.0;
};
using OdDbPointPtr = OdSmartPtr<OdDbPoint>;
