// A full circle in the plane of its normal, centre in world coordinates.
#pragma once

#include "platform/db/OdDbEntity.h"
#include "platform/db/entities/CircularShape.h"

class OdDbCircle : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbCircle);

 public:
  OdDbCircle() = default;

  OdGePoint3d center() const;
  void setCenter(const OdGePoint3d& center);
  double radius() const;
  // A radius that is not positive raises eInvalidInput.
  void setRadius(double radius);
  double thickness() const;
  void setThickness(double thickness);
  OdGeVector3d normal() const;
  void setNormal(const OdGeVector3d& normal);

  // Similarities only: a scale that differs within the circle's plane gives
  // eCannotScaleNonUniformly (getTransformedCopy makes the ellipse instead).
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  OdResult getTransformedCopy(const OdGeMatrix3d& matrix, OdDbEntityPtr& copy) const override;
  // No stretch points: a circle is never reshaped by a stretch, only moved whole.
  OdResult getStretchPoints(OdGePoint3dArray& points) const override;
  OdResult moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  // Grips: centre (0, moves the circle) and the four quadrant points (1-4, change the radius).
  OdResult subGetGripPoints(OdGePoint3dArray& points) const override;
  OdResult subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  // eInvalidInput for a radius that is not positive.
  OdResult dxfInFields(OdDbDxfFiler* filer) override;

 protected:
  FieldTable fieldTable() const override;

 private:
  CircularShape m_shape;
};
using OdDbCirclePtr = OdSmartPtr<OdDbCircle>;
