// What attribute definitions and attributes share: a tagged single-line text with its
// placement (position, alignment point, height, rotation, modes, plane) and attribute flags.
#pragma once

#include "platform/db/OdDbEntity.h"

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

class OdDbAttributeBase : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbAttributeBase);

 public:
  OdDbAttributeBase();

  OdString tag() const;
  // eInvalidInput for an empty tag or one with spaces.
  void setTag(const OdString& tag);
  OdString textString() const;
  void setTextString(const OdString& text);
  OdString textStyle() const;
  void setTextStyle(const OdString& styleName);

  OdGePoint3d position() const;
  void setPosition(const OdGePoint3d& position);
  // Where a text that is not left/base aligned is anchored.
  OdGePoint3d alignmentPoint() const;
  void setAlignmentPoint(const OdGePoint3d& point);
  bool isDefaultAlignment() const;
  double height() const;
  // eInvalidInput unless positive.
  void setHeight(double height);
  double rotation() const;
  void setRotation(double angle);
  double widthFactor() const;
  void setWidthFactor(double factor);
  double oblique() const;
  void setOblique(double angle);
  OdGeVector3d normal() const;
  void setNormal(const OdGeVector3d& normal);
  double thickness() const;
  void setThickness(double thickness);
  OdDb::TextHorzMode horizontalMode() const;
  void setHorizontalMode(OdDb::TextHorzMode mode);
  OdDb::TextVertMode verticalMode() const;
  void setVerticalMode(OdDb::TextVertMode mode);

  bool isInvisible() const;
  void setInvisible(bool invisible);
  bool isConstant() const;
  void setConstant(bool constant);
  bool isVerifiable() const;
  void setVerifiable(bool verify);
  bool isPreset() const;
  void setPreset(bool preset);
  bool lockPositionInBlock() const;
  void setLockPositionInBlock(bool locked);

  // Moves the anchor points and plane; height and width follow the transform's scale in the
  // text's plane, the rotation follows its direction.
  OdResult transformBy(const OdGeMatrix3d& xform) override;
  // The position, and the alignment point when the text is not left/base aligned.
  OdResult getGripPoints(OdGePoint3dArray& points) const override;
  // Moving any of the points moves the whole text.
  OdResult moveGripPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) override;
  // The anchor points (a text has no outline of its own without its font).
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  // AcDbText: 10 position, 40 height, 1 text, 50 rotation, 41 width, 51 oblique, 7 style, 72
  // horizontal mode, 11 alignment point, 210 normal, 39 thickness.
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 protected:
  // The attribute part: 2 tag, 70 flags, 73 field length, 74 vertical mode, 280 lock.
  void dxfOutAttributeFields(OdDbDxfFiler* filer) const;
  // Reads one item of the attribute part; false when the code is not one of them.
  bool dxfInAttributeItem(OdDbDxfFiler* filer, int code);
  // Copies the shared fields from another attribute object.
  void copySharedFrom(const OdDbAttributeBase& other);

 private:
  OdString m_tag;
  OdString m_text;
  OdString m_style{"Standard"};
  OdGePoint3d m_position;
  OdGePoint3d m_alignment;
  OdGeVector3d m_normal{0.0, 0.0, 1.0};
  double m_height = 1.0;
  double m_rotation = 0.0;
  double m_widthFactor = 1.0;
  double m_oblique = 0.0;
  double m_thickness = 0.0;
  std::int16_t m_horizontal = OdDb::kTextLeft;
  std::int16_t m_vertical = OdDb::kTextBase;
  std::int16_t m_flags = 0;
  std::int16_t m_fieldLength = 0;
  bool m_lockPosition = false;
};
