// A straight segment between two world points, optionally extruded along its normal.
#pragma once

#include "platform/db/entities/ExtrudedEntity.h"

class OdDbLine : public ExtrudedEntity {
  ODRX_DECLARE_MEMBERS(OdDbLine);

 public:
  OdDbLine() = default;

  OdGePoint3d startPoint() const;
  void setStartPoint(const OdGePoint3d& point);
  OdGePoint3d endPoint() const;
  void setEndPoint(const OdGePoint3d& point);

  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  // Stretch points: start (0) and end (1).
  OdResult getStretchPoints(OdGePoint3dArray& points) const override;
  OdResult moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  // Grips: start (0), midpoint (1, moves the whole line) and end (2).
  OdResult subGetGripPoints(OdGePoint3dArray& points) const override;
  OdResult subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

 protected:
  FieldTable fieldTable() const override;

 private:
  OdGePoint3d m_start;
  OdGePoint3d m_end;
};
using OdDbLinePtr = OdSmartPtr<OdDbLine>;
