// A single line of text: the insertion point, a second alignment point for every justification
// other than left/baseline, height, rotation, width factor, slant, style and mirror flags.
// Attribute definitions and attributes share this geometry by deriving from it.
#pragma once

#include "platform/db/entities/ExtrudedEntity.h"
#include "platform/db/entities/TextEntity.h"

namespace OdDb {
enum TextHorzMode {
  kTextLeft = 0,
  kTextCenter = 1,
  kTextRight = 2,
  kTextAlign = 3,
  kTextMid = 4,
  kTextFit = 5
};
enum TextVertMode { kTextBase = 0, kTextBottom = 1, kTextVertMid = 2, kTextTop = 3 };
}  // namespace OdDb

class OdDbText : public TextEntity<ExtrudedEntity> {
  ODRX_DECLARE_MEMBERS(OdDbText);

 public:
  OdDbText() = default;

  OdGePoint3d position() const;
  void setPosition(const OdGePoint3d& position);
  // The anchor of justified text (and the baseline end of aligned and fitted text).
  OdGePoint3d alignmentPoint() const;
  void setAlignmentPoint(const OdGePoint3d& point);
  // True for every justification but left/baseline: the alignment point is then in use.
  bool isJustified() const;
  OdString textString() const;
  void setTextString(const OdString& text);
  double height() const;
  // A height that is not positive raises eInvalidInput.
  void setHeight(double height);
  double rotation() const;
  void setRotation(double angle);
  double widthFactor() const;
  // A factor that is not positive raises eInvalidInput.
  void setWidthFactor(double factor);
  double oblique() const;
  void setOblique(double angle);
  OdDb::TextHorzMode horizontalMode() const;
  void setHorizontalMode(OdDb::TextHorzMode mode);
  OdDb::TextVertMode verticalMode() const;
  void setVerticalMode(OdDb::TextVertMode mode);
  bool isMirroredInX() const;
  void mirrorInX(bool mirrored);
  bool isMirroredInY() const;
  void mirrorInY(bool mirrored);

  // Similarities only (eCannotScaleNonUniformly otherwise, also from getTransformedCopy). A
  // mirror keeps the text readable and in the mirror image of its outline: the rotation is the
  // mirrored direction or its reverse, whichever reads left to right, and the justification
  // trades left for right (reversed reading) or top for bottom (text turned over its baseline)
  // about the mirrored anchor. Aligned and fitted text swap or shift their two points instead.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  OdResult getTransformedCopy(const OdGeMatrix3d& matrix, OdDbEntityPtr& copy) const override;
  // Stretch points: the insertion point (0) and, for justified text, the alignment point (1).
  // Aligned and fitted text move each point on its own; other justified text is anchored at the
  // alignment point and moves whole whichever point is stretched.
  OdResult getStretchPoints(OdGePoint3dArray& points) const override;
  OdResult moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  // An estimate without font metrics: each character advances 0.8 of the height times the
  // width factor, the box runs from the baseline to one height above it, slanted by the oblique
  // angle and placed by the justification.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 protected:
  // The entity data and the first text subclass, marker included, up to the next marker:
  // attribute kinds file it the same way (naming the style even when it is the default) and add
  // the vertical mode in their own subclass.
  void dxfOutTextPart(OdDbDxfFiler* filer, bool alwaysNameStyle) const;
  OdResult dxfInTextPart(OdDbDxfFiler* filer);
  // Reads a vertical mode item; eInvalidInput when it is out of range.
  OdResult dxfInVerticalMode(OdDbDxfFiler* filer);
  // Follows any transformation that keeps the text's plane: the anchor points move, the height
  // follows the scale across the baseline, the width factor the scale along it over that, and
  // the rotation and normal follow the baseline and its upward direction, mirror images
  // included, which read forwards as under transformBy. eCannotScaleNonUniformly when the plane
  // collapses, eDegenerateGeometry for any other singular matrix.
  OdResult transformAffinely(const OdGeMatrix3d& matrix);
  // The text data of another text, as an attribute takes it from its definition.
  void copyTextFrom(const OdDbText& other);

 private:
  // The estimated glyph box before the mirror flags: from origin + along * dx + up * dy, width
  // along the baseline and height up from it.
  struct Outline {
    OdGePoint3d origin;
    OdGeVector3d along;
    OdGeVector3d up;
    double dx = 0.0;
    double dy = 0.0;
    double width = 0.0;
    double height = 0.0;
  };
  Outline currentOutline() const;
  // The point the justification holds still: the alignment point of justified text, the
  // insertion point otherwise.
  OdGePoint3d anchorPoint() const;
  // After a mirror has mapped the points and made the rotation readable: moves the text into
  // the mirror image of its old outline about anchor (the image of the old anchor point).
  void fillMirroredOutline(const OdGePoint3d& anchor, bool readingReversed);

  OdGePoint3d m_position;
  OdGePoint3d m_alignment;
  OdString m_text;
  double m_height = 1.0;
  double m_rotation = 0.0;
  double m_widthFactor = 1.0;
  double m_oblique = 0.0;
  OdDb::TextHorzMode m_horizontal = OdDb::kTextLeft;
  OdDb::TextVertMode m_vertical = OdDb::kTextBase;
  bool m_mirroredX = false;
  bool m_mirroredY = false;
};
using OdDbTextPtr = OdSmartPtr<OdDbText>;
