// Attribute text shared by attribute definitions and attributes.
#include "platform/db/OdDbAttributeBase.h"

#include <cmath>

#include "platform/db/OdDbDwgFiler.h"
#include "platform/db/OdDbDxfFiler.h"
#include "platform/ge/OdGeTol.h"
#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbAttributeBase, OdDbEntity)

namespace {
constexpr double kTwoPi = 6.283185307179586476925286766559;
enum Flags : std::int16_t { kInvisible = 1, kConstant = 2, kVerify = 4, kPreset = 8 };

double normalizedAngle(double angle) {
  angle = std::fmod(angle, kTwoPi);
  return angle < 0.0 ? angle + kTwoPi : angle;
}
}  // namespace

OdDbAttributeBase::OdDbAttributeBase() = default;

#define JB_ATTRIBUTE_PROPERTY(Type, ParamType, getter, setter, member) \
  Type OdDbAttributeBase::getter() const {                             \
    assertReadEnabled();                                               \
    return member;                                                     \
  }                                                                    \
  void OdDbAttributeBase::setter(ParamType value) {                    \
    assertWriteEnabled();                                              \
    member = value;                                                    \
  }

JB_ATTRIBUTE_PROPERTY(OdGePoint3d, const OdGePoint3d&, position, setPosition, m_position)
JB_ATTRIBUTE_PROPERTY(OdGePoint3d, const OdGePoint3d&, alignmentPoint, setAlignmentPoint,
                      m_alignment)
JB_ATTRIBUTE_PROPERTY(double, double, widthFactor, setWidthFactor, m_widthFactor)
JB_ATTRIBUTE_PROPERTY(double, double, oblique, setOblique, m_oblique)
JB_ATTRIBUTE_PROPERTY(double, double, thickness, setThickness, m_thickness)
JB_ATTRIBUTE_PROPERTY(bool, bool, lockPositionInBlock, setLockPositionInBlock, m_lockPosition)
#undef JB_ATTRIBUTE_PROPERTY

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
OdString OdDbAttributeBase::textString() const {
  assertReadEnabled();
  return m_text;
}
void OdDbAttributeBase::setTextString(const OdString& text) {
  assertWriteEnabled();
  m_text = text;
}
OdString OdDbAttributeBase::textStyle() const {
  assertReadEnabled();
  return m_style;
}
void OdDbAttributeBase::setTextStyle(const OdString& styleName) {
  assertWriteEnabled();
  m_style = styleName;
}
bool OdDbAttributeBase::isDefaultAlignment() const {
  assertReadEnabled();
  return m_horizontal == OdDb::kTextLeft && m_vertical == OdDb::kTextBase;
}
double OdDbAttributeBase::height() const {
  assertReadEnabled();
  return m_height;
}
void OdDbAttributeBase::setHeight(double height) {
  if (!(height > 0.0))
    throw OdError(eInvalidInput, describe().str() + ": text height must be positive");
  assertWriteEnabled();
  m_height = height;
}
double OdDbAttributeBase::rotation() const {
  assertReadEnabled();
  return m_rotation;
}
void OdDbAttributeBase::setRotation(double angle) {
  assertWriteEnabled();
  m_rotation = normalizedAngle(angle);
}
OdGeVector3d OdDbAttributeBase::normal() const {
  assertReadEnabled();
  return m_normal;
}
void OdDbAttributeBase::setNormal(const OdGeVector3d& normal) {
  if (normal.isZeroLength()) throw OdError(eInvalidInput, describe().str() + ": a zero normal");
  assertWriteEnabled();
  m_normal = normal.normal();
}
OdDb::TextHorzMode OdDbAttributeBase::horizontalMode() const {
  assertReadEnabled();
  return static_cast<OdDb::TextHorzMode>(m_horizontal);
}
void OdDbAttributeBase::setHorizontalMode(OdDb::TextHorzMode mode) {
  if (mode < OdDb::kTextLeft || mode > OdDb::kTextFit)
    throw OdError(eInvalidInput, describe().str() + ": no such horizontal mode");
  assertWriteEnabled();
  m_horizontal = static_cast<std::int16_t>(mode);
}
OdDb::TextVertMode OdDbAttributeBase::verticalMode() const {
  assertReadEnabled();
  return static_cast<OdDb::TextVertMode>(m_vertical);
}
void OdDbAttributeBase::setVerticalMode(OdDb::TextVertMode mode) {
  if (mode < OdDb::kTextBase || mode > OdDb::kTextTop)
    throw OdError(eInvalidInput, describe().str() + ": no such vertical mode");
  assertWriteEnabled();
  m_vertical = static_cast<std::int16_t>(mode);
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
  assertReadEnabled();
  const OdGeMatrix3d toWorld = OdGeMatrix3d::planeToWorld(m_normal);
  OdGeVector3d direction(std::cos(m_rotation), std::sin(m_rotation), 0.0);
  direction.transformBy(toWorld);
  OdGeVector3d up = m_normal.crossProduct(direction);
  direction.transformBy(xform);
  up.transformBy(xform);
  OdGeVector3d normal = direction.crossProduct(up);
  if (normal.isZeroLength() || direction.isZeroLength()) return eCannotScaleNonUniformly;
  normal = normal.normal();
  OdGeVector3d planar = direction;
  planar.transformBy(OdGeMatrix3d::planeToWorld(normal).inverse());
  OdGePoint3d position = m_position;
  OdGePoint3d alignment = m_alignment;
  position.transformBy(xform);
  alignment.transformBy(xform);
  assertWriteEnabled();
  m_position = position;
  m_alignment = alignment;
  m_normal = normal;
  m_rotation = normalizedAngle(std::atan2(planar.y, planar.x));
  m_height *= up.length();
  m_widthFactor *= direction.length() / up.length();
  return eOk;
}

OdResult OdDbAttributeBase::getGripPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  points.append(m_position);
  if (m_horizontal != OdDb::kTextLeft || m_vertical != OdDb::kTextBase) points.append(m_alignment);
  return eOk;
}

OdResult OdDbAttributeBase::moveGripPointsAt(const OdIntArray& indices,
                                             const OdGeVector3d& offset) {
  if (indices.isEmpty()) return eOk;
  assertWriteEnabled();
  m_position += offset;
  m_alignment += offset;
  return eOk;
}

OdResult OdDbAttributeBase::getGeomExtents(OdGeExtents3d& extents) const {
  OdGePoint3dArray points;
  getGripPoints(points);
  OdGeExtents3d result;
  for (const OdGePoint3d& point : points)
    result.addPoint(point);
  extents = result;
  return eOk;
}

void OdDbAttributeBase::copySharedFrom(const OdDbAttributeBase& other) {
  assertWriteEnabled();
  m_tag = other.m_tag;
  m_text = other.m_text;
  m_style = other.m_style;
  m_position = other.m_position;
  m_alignment = other.m_alignment;
  m_normal = other.m_normal;
  m_height = other.m_height;
  m_rotation = other.m_rotation;
  m_widthFactor = other.m_widthFactor;
  m_oblique = other.m_oblique;
  m_thickness = other.m_thickness;
  m_horizontal = other.m_horizontal;
  m_vertical = other.m_vertical;
  m_flags = static_cast<std::int16_t>(other.m_flags & ~kConstant);
  m_fieldLength = other.m_fieldLength;
  m_lockPosition = other.m_lockPosition;
}

OdResult OdDbAttributeBase::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbEntity::dwgInFields(filer);
  if (result != eOk) return result;
  m_tag = filer->rdString();
  m_text = filer->rdString();
  m_style = filer->rdString();
  m_position = filer->rdPoint3d();
  m_alignment = filer->rdPoint3d();
  m_normal = filer->rdVector3d();
  m_height = filer->rdDouble();
  m_rotation = filer->rdDouble();
  m_widthFactor = filer->rdDouble();
  m_oblique = filer->rdDouble();
  m_thickness = filer->rdDouble();
  m_horizontal = filer->rdInt16();
  m_vertical = filer->rdInt16();
  m_flags = filer->rdInt16();
  m_fieldLength = filer->rdInt16();
  m_lockPosition = filer->rdBool();
  return eOk;
}

void OdDbAttributeBase::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrString(m_tag);
  filer->wrString(m_text);
  filer->wrString(m_style);
  filer->wrPoint3d(m_position);
  filer->wrPoint3d(m_alignment);
  filer->wrVector3d(m_normal);
  filer->wrDouble(m_height);
  filer->wrDouble(m_rotation);
  filer->wrDouble(m_widthFactor);
  filer->wrDouble(m_oblique);
  filer->wrDouble(m_thickness);
  filer->wrInt16(m_horizontal);
  filer->wrInt16(m_vertical);
  filer->wrInt16(m_flags);
  filer->wrInt16(m_fieldLength);
  filer->wrBool(m_lockPosition);
}

OdResult OdDbAttributeBase::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbEntity::dxfInFields(filer);
  if (result != eOk) return result;
  if (!filer->atSubclassData("AcDbText"))
    throw OdError(eBadDxfSequence,
                  describe().str() + ": AcDbText expected at " + filer->describePosition().str());
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    const int code = filer->nextItem();
    switch (code) {
      case 10:
        m_position = filer->rdPoint3d();
        break;
      case 11:
        m_alignment = filer->rdPoint3d();
        break;
      case 40:
        m_height = filer->rdDouble();
        break;
      case 1:
        m_text = filer->rdString();
        break;
      case 50:
        m_rotation = normalizedAngle(filer->rdDouble() * kTwoPi / 360.0);
        break;
      case 41:
        m_widthFactor = filer->rdDouble();
        break;
      case 51:
        m_oblique = filer->rdDouble() * kTwoPi / 360.0;
        break;
      case 7:
        m_style = filer->rdString();
        break;
      case 72:
        m_horizontal = filer->rdInt16();
        break;
      case 210:
        m_normal = filer->rdVector3d();
        break;
      case 39:
        m_thickness = filer->rdDouble();
        break;
      case 71:
        filer->rdInt16();
        break;  // backwards / upside-down generation is not kept
      default:
        filer->pushBackItem();
        return filer->filerStatus();
    }
  }
  return filer->filerStatus();
}

void OdDbAttributeBase::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbText");
  if (m_thickness != 0.0) filer->wrDouble(39, m_thickness);
  filer->wrPoint3d(10, m_position);
  filer->wrDouble(40, m_height);
  filer->wrString(1, m_text);
  if (m_rotation != 0.0) filer->wrDouble(50, m_rotation * 360.0 / kTwoPi);
  if (m_widthFactor != 1.0) filer->wrDouble(41, m_widthFactor);
  if (m_oblique != 0.0) filer->wrDouble(51, m_oblique * 360.0 / kTwoPi);
  filer->wrString(7, m_style);
  if (m_horizontal != OdDb::kTextLeft) filer->wrInt16(72, m_horizontal);
  if (m_horizontal != OdDb::kTextLeft || m_vertical != OdDb::kTextBase)
    filer->wrPoint3d(11, m_alignment);
  if (!m_normal.isEqualTo(OdGeVector3d::kZAxis)) filer->wrVector3d(210, m_normal);
}

void OdDbAttributeBase::dxfOutAttributeFields(OdDbDxfFiler* filer) const {
  filer->wrInt8(280, 0);
  filer->wrString(2, m_tag);
  filer->wrInt16(70, m_flags);
  if (m_fieldLength) filer->wrInt16(73, m_fieldLength);
  if (m_vertical != OdDb::kTextBase) filer->wrInt16(74, m_vertical);
  if (m_lockPosition) filer->wrInt8(280, 1);
}

bool OdDbAttributeBase::dxfInAttributeItem(OdDbDxfFiler* filer, int code) {
  switch (code) {
    case 2:
      m_tag = filer->rdString();
      return true;
    case 70:
      m_flags = filer->rdInt16();
      return true;
    case 73:
      m_fieldLength = filer->rdInt16();
      return true;
    case 74:
      m_vertical = filer->rdInt16();
      return true;
    // The version (0) comes first under 280; a later 280 is the lock flag.
    case 280:
      m_lockPosition = filer->rdInt8() != 0;
      return true;
    default:
      return false;
  }
}
