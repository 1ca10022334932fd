// A circular arc: centre, radius and the counter-clockwise sweep from the start to the end angle,
// measured in the object coordinate system of its normal.
#pragma once

#include "platform/db/OdDbEntity.h"
#include "platform/db/entities/CircularShape.h"

class OdDbArc : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbArc);

 public:
  OdDbArc() = default;

  OdGePoint3d center() const;
  void setCenter(const OdGePoint3d& center);
  double radius() const;
  // A radius that is not positive raises eInvalidInput.
  void setRadius(double radius);
  // Angles are stored normalised into [0, 2*pi).
  double startAngle() const;
  void setStartAngle(double angle);
  double endAngle() const;
  void setEndAngle(double angle);
  double thickness() const;
  void setThickness(double thickness);
  OdGeVector3d normal() const;
  void setNormal(const OdGeVector3d& normal);
  OdGePoint3d startPoint() const;
  OdGePoint3d endPoint() const;

  // Similarities only (eCannotScaleNonUniformly otherwise; getTransformedCopy then makes an
  // elliptical arc). A mirror keeps the arc counter-clockwise: its ends swap.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  OdResult getTransformedCopy(const OdGeMatrix3d& matrix, OdDbEntityPtr& copy) const override;
  // Stretch points: start (0) and end (1). Moving one end keeps the included angle, so the arc
  // stays the same arc a polyline segment with that bulge would; moving both moves the arc.
  OdResult getStretchPoints(OdGePoint3dArray& points) const override;
  OdResult moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  // Grips: start (0), end (1) as for stretching, and the centre (2), which moves the arc.
  OdResult subGetGripPoints(OdGePoint3dArray& points) const override;
  OdResult subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  // eInvalidInput for a radius that is not positive.
  OdResult dxfInFields(OdDbDxfFiler* filer) override;

 protected:
  FieldTable fieldTable() const override;

 private:
  double sweep() const;

  CircularShape m_shape;
  double m_startAngle = 0.0;
  double m_endAngle = 0.0;
};
using OdDbArcPtr = OdSmartPtr<OdDbArc>;
