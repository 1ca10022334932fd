// Attribute fields shared by attribute definitions and attributes.
#include "platform/db/entities/OdDbAttributeBase.h"

#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbAttributeBase, OdDbText)

namespace {
enum Flags : std::int16_t { kInvisible = 1, kConstant = 2, kVerify = 4, kPreset = 8 };
}  // namespace

OdDbAttributeBase::OdDbAttributeBase() = default;

OdString OdDbAttributeBase::tag() const {
  assertReadEnabled();
  return m_tag;
}

void OdDbAttributeBase::setTag(const OdString& tag) {
  if (tag.isEmpty() || tag.find(' ') >= 0)
    throw OdError(eInvalidInput, describe().str() + ": \"" + tag.str() + "\" is not a valid tag");
  assertWriteEnabled();
  m_tag = tag;
}

bool OdDbAttributeBase::lockPositionInBlock() const {
  assertReadEnabled();
  return m_lockPosition;
}

void OdDbAttributeBase::setLockPositionInBlock(bool locked) {
  assertWriteEnabled();
  m_lockPosition = locked;
}

#define JB_ATTRIBUTE_FLAG(getter, setter, bit)          \
  bool OdDbAttributeBase::getter() const {              \
    assertReadEnabled();                                \
    return (m_flags & bit) != 0;                        \
  }                                                     \
  void OdDbAttributeBase::setter(bool on) {             \
    if (on == ((m_flags & bit) != 0)) return;           \
    assertWriteEnabled();                               \
    m_flags = static_cast<std::int16_t>(m_flags ^ bit); \
  }

JB_ATTRIBUTE_FLAG(isInvisible, setInvisible, kInvisible)
JB_ATTRIBUTE_FLAG(isConstant, setConstant, kConstant)
JB_ATTRIBUTE_FLAG(isVerifiable, setVerifiable, kVerify)
JB_ATTRIBUTE_FLAG(isPreset, setPreset, kPreset)
#undef JB_ATTRIBUTE_FLAG

OdResult OdDbAttributeBase::transformBy(const OdGeMatrix3d& xform) {
  return transformAffinely(xform);
}

OdResult OdDbAttributeBase::getTransformedCopy(const OdGeMatrix3d& xform,
                                               OdDbEntityPtr& copy) const {
  return OdDbEntity::getTransformedCopy(xform, copy);
}

void OdDbAttributeBase::copyAttributeFrom(const OdDbAttributeBase& other) {
  copyTextFrom(other);
  m_tag = other.m_tag;
  m_flags = static_cast<std::int16_t>(other.m_flags & ~kConstant);
  m_fieldLength = other.m_fieldLength;
  m_lockPosition = other.m_lockPosition;
}

OdResult OdDbAttributeBase::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbText::dwgInFields(filer);
  if (result != eOk) return result;
  m_tag = filer->rdString();
  m_flags = filer->rdInt16();
  m_fieldLength = filer->rdInt16();
  m_lockPosition = filer->rdBool();
  return eOk;
}

void OdDbAttributeBase::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbText::dwgOutFields(filer);
  filer->wrString(m_tag);
  filer->wrInt16(m_flags);
  filer->wrInt16(m_fieldLength);
  filer->wrBool(m_lockPosition);
}

void OdDbAttributeBase::dxfOutAttributeFields(OdDbDxfFiler* filer) const {
  filer->wrInt8(280, 0);
  filer->wrString(2, m_tag);
  filer->wrInt16(70, m_flags);
  if (m_fieldLength) filer->wrInt16(73, m_fieldLength);
  if (verticalMode() != OdDb::kTextBase)
    filer->wrInt16(74, static_cast<std::int16_t>(verticalMode()));
  if (m_lockPosition) filer->wrInt8(280, 1);
}

OdResult OdDbAttributeBase::dxfInAttributeFields(OdDbDxfFiler* filer, OdString* prompt) {
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    switch (filer->nextItem()) {
      case 2:
        m_tag = filer->rdString();
        break;
      case 3:
        if (prompt) *prompt = filer->rdString();
        break;
      case 70:
        m_flags = filer->rdInt16();
        break;
      case 73:
        m_fieldLength = filer->rdInt16();
        break;
      case 74: {
        const OdResult result = dxfInVerticalMode(filer);
        if (result != eOk) return result;
        break;
      }
      // The version (0) comes first under 280; a later 280 is the lock flag.
      case 280:
        m_lockPosition = filer->rdInt8() != 0;
        break;
      default:
        break;
    }
  }
  return filer->filerStatus();
}
