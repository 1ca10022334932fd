// An ellipse or elliptical arc: centre, major axis (a world vector, its half length), the ratio of
// minor to major, and the counter-clockwise parameter range about the normal.
#pragma once

#include "platform/db/OdDbEntity.h"
#include "platform/ge/OdGeConstants.h"

class OdDbEllipse : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbEllipse);

 public:
  OdDbEllipse() = default;

  // The whole shape at once: the major axis must be perpendicular to the normal and non-zero,
  // the ratio in (0, 1]; otherwise eInvalidInput and nothing changes. Parameters are normalised
  // into [0, 2*pi); equal parameters mean the whole ellipse.
  void set(const OdGePoint3d& center, const OdGeVector3d& normal, const OdGeVector3d& majorAxis,
           double radiusRatio, double startParam = 0.0, double endParam = OdGeConstants::k2Pi);
  OdGePoint3d center() const;
  void setCenter(const OdGePoint3d& center);
  OdGeVector3d normal() const;
  OdGeVector3d majorAxis() const;
  // normal x majorAxis scaled by the ratio.
  OdGeVector3d minorAxis() const;
  double radiusRatio() const;
  void setRadiusRatio(double ratio);
  double startParam() const;
  void setStartParam(double param);
  double endParam() const;
  void setEndParam(double param);
  bool isClosed() const;
  OdGePoint3d pointAtParam(double param) const;

  // Any non-singular affine transformation keeps an ellipse an ellipse.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  // Stretch point: the centre, which moves the ellipse whole.
  OdResult getStretchPoints(OdGePoint3dArray& points) const override;
  OdResult moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  OdResult subGetGripPoints(OdGePoint3dArray& points) const override;
  OdResult subMoveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  // eInvalidInput for a zero or missing major axis or a ratio outside (0, 1].
  OdResult dxfInFields(OdDbDxfFiler* filer) override;

 protected:
  FieldTable fieldTable() const override;

 private:
  OdGePoint3d m_center;
  OdGeVector3d m_normal = OdGeVector3d::kZAxis;
  OdGeVector3d m_major = OdGeVector3d::kXAxis;
  double m_ratio = 1.0;
  double m_startParam = 0.0;
  double m_endParam = OdGeConstants::k2Pi;
};
using OdDbEllipsePtr = OdSmartPtr<OdDbEllipse>;
