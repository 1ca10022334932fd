// A filled 2-D solid (also the shape of a trace): four corners in the plane of its normal; the
// third and fourth corners are joined crosswise, as drawing files define it, and a triangle
// repeats its third corner.
#pragma once

#include "platform/db/entities/ExtrudedEntity.h"

class OdDbSolid : public ExtrudedEntity {
  ODRX_DECLARE_MEMBERS(OdDbSolid);

 public:
  OdDbSolid() = default;

  // Corners 0 to 3 in world coordinates; another index raises eInvalidIndex.
  OdGePoint3d getPointAt(int index) const;
  void setPointAt(int index, const OdGePoint3d& point);

  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  // Stretch and grip points: the four corners.
  OdResult getStretchPoints(OdGePoint3dArray& points) const override;
  OdResult moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  OdResult subGetGripPoints(OdGePoint3dArray& points) const override;
  OdResult subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

 protected:
  FieldTable fieldTable() const override;

 private:
  OdGePoint3d m_corners[4];
};
using OdDbSolidPtr = OdSmartPtr<OdDbSolid>;
