// Multiline text: a location, a reading direction, the width of its reference column, the text
// height, the attachment point (1 top left ... 9 bottom right) and the formatted contents.
#pragma once

#include "platform/db/entities/TextEntity.h"

class OdDbMText : public TextEntity<OdDbEntity> {
  ODRX_DECLARE_MEMBERS(OdDbMText);

 public:
  enum AttachmentPoint {
    kTopLeft = 1,
    kTopCenter,
    kTopRight,
    kMiddleLeft,
    kMiddleCenter,
    kMiddleRight,
    kBottomLeft,
    kBottomCenter,
    kBottomRight,
  };

  OdDbMText() = default;

  OdGePoint3d location() const;
  void setLocation(const OdGePoint3d& location);
  // The reading direction in world coordinates (unit, in the plane of the normal).
  OdGeVector3d direction() const;
  // A direction with no component in the plane raises eInvalidInput.
  void setDirection(const OdGeVector3d& direction);
  OdGeVector3d normal() const;
  // Keeps the direction in the new plane; a zero normal raises eInvalidInput.
  void setNormal(const OdGeVector3d& normal);
  // The reference column width; 0 means no wrapping.
  double width() const;
  void setWidth(double width);
  double textHeight() const;
  // A height that is not positive raises eInvalidInput.
  void setTextHeight(double height);
  AttachmentPoint attachment() const;
  void setAttachment(AttachmentPoint attachment);
  OdString contents() const;
  void setContents(const OdString& contents);

  // Similarities only (eCannotScaleNonUniformly otherwise, also from getTransformedCopy). Under
  // a mirror the text stays readable and fills the mirror image of its outline: the direction is
  // the mirrored one or its reverse, whichever reads left to right, and the attachment trades
  // left for right (reversed reading) or top for bottom (text turned over).
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  OdResult getTransformedCopy(const OdGeMatrix3d& matrix, OdDbEntityPtr& copy) const override;
  // Stretch and grip point: the location (0).
  OdResult getStretchPoints(OdGePoint3dArray& points) const override;
  OdResult moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  // An estimate without font metrics: the column width (or 0.8 of the height per character of
  // the longest paragraph) by the paragraph count times the standard line pitch of 5/3 height.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 private:
  OdGePoint3d m_location;
  OdGeVector3d m_direction = OdGeVector3d::kXAxis;
  OdGeVector3d m_normal = OdGeVector3d::kZAxis;
  double m_width = 0.0;
  double m_textHeight = 1.0;
  AttachmentPoint m_attachment = kTopLeft;
  OdString m_contents;
};
using OdDbMTextPtr = OdSmartPtr<OdDbMText>;
