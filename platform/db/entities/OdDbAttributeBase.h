// What attribute definitions and attributes add to a single line of text: the tag, the
// attribute flags, the field length and the position lock.
#pragma once

#include "platform/db/entities/OdDbText.h"

class OdDbAttributeBase : public OdDbText {
  ODRX_DECLARE_MEMBERS(OdDbAttributeBase);

 public:
  OdDbAttributeBase();

  OdString tag() const;
  // eInvalidInput for an empty tag or one with spaces.
  void setTag(const OdString& tag);

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

  // Attributes follow their block reference under any transformation that keeps their plane,
  // mirror images and non-uniform scales included (see transformAffinely).
  OdResult transformBy(const OdGeMatrix3d& xform) override;
  OdResult getTransformedCopy(const OdGeMatrix3d& xform, OdDbEntityPtr& copy) const override;

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;

 protected:
  // The attribute part: 280 version, 2 tag, 70 flags, 73 field length, 74 vertical mode, 280
  // lock.
  void dxfOutAttributeFields(OdDbDxfFiler* filer) const;
  // Reads the items of the attribute part after its marker; 3 (the prompt) goes to prompt when
  // given, and is skipped otherwise.
  OdResult dxfInAttributeFields(OdDbDxfFiler* filer, OdString* prompt);
  // Copies the text and the attribute fields from another attribute object (not its constant
  // flag: a copy made from a constant definition is a value of its own).
  void copyAttributeFrom(const OdDbAttributeBase& other);

 private:
  OdString m_tag;
  std::int16_t m_flags = 0;
  std::int16_t m_fieldLength = 0;
  bool m_lockPosition = false;
};
