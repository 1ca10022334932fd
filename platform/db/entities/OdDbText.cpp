#include "platform/db/entities/OdDbText.h"

#include <cmath>

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/PlanarTransform.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbText, OdDbEntity, "TEXT", "", 0)

namespace {
constexpr int kMirroredInX = 2;
constexpr int kMirroredInY = 4;

// Code points of a UTF-8 string.
int characterCount(const OdString& text) {
  int count = 0;
  for (char ch : text.str()) {
    if ((static_cast<unsigned char>(ch) & 0xC0) != 0x80) ++count;
  }
  return count;
}

bool isBaselineAligned(OdDb::TextHorzMode mode) {
  return mode == OdDb::kTextAlign || mode == OdDb::kTextFit;
}
}  // namespace

OdGePoint3d OdDbText::position() const {
  assertReadEnabled();
  return m_position;
}

void OdDbText::setPosition(const OdGePoint3d& position) {
  assertWriteEnabled();
  m_position = position;
}

OdGePoint3d OdDbText::alignmentPoint() const {
  assertReadEnabled();
  return m_alignment;
}

void OdDbText::setAlignmentPoint(const OdGePoint3d& point) {
  assertWriteEnabled();
  m_alignment = point;
}

bool OdDbText::isJustified() const {
  assertReadEnabled();
  return m_horizontal != OdDb::kTextLeft || m_vertical != OdDb::kTextBase;
}

OdString OdDbText::textString() const {
  assertReadEnabled();
  return m_text;
}

void OdDbText::setTextString(const OdString& text) {
  assertWriteEnabled();
  m_text = text;
}

double OdDbText::height() const {
  assertReadEnabled();
  return m_height;
}

void OdDbText::setHeight(double height) {
  if (!(height > 0.0)) throw OdError(eInvalidInput, "OdDbText::setHeight: height must be > 0");
  assertWriteEnabled();
  m_height = height;
}

double OdDbText::rotation() const {
  assertReadEnabled();
  return m_rotation;
}

void OdDbText::setRotation(double angle) {
  assertWriteEnabled();
  m_rotation = OdGeAngle::normalize(angle);
}

double OdDbText::widthFactor() const {
  assertReadEnabled();
  return m_widthFactor;
}

void OdDbText::setWidthFactor(double factor) {
  if (!(factor > 0.0)) throw OdError(eInvalidInput, "OdDbText::setWidthFactor: factor must be > 0");
  assertWriteEnabled();
  m_widthFactor = factor;
}

double OdDbText::oblique() const {
  assertReadEnabled();
  return m_oblique;
}

void OdDbText::setOblique(double angle) {
  assertWriteEnabled();
  m_oblique = angle;
}

OdDb::TextHorzMode OdDbText::horizontalMode() const {
  assertReadEnabled();
  return m_horizontal;
}

void OdDbText::setHorizontalMode(OdDb::TextHorzMode mode) {
  if (mode < OdDb::kTextLeft || mode > OdDb::kTextFit)
    throw OdError(eInvalidInput, "OdDbText::setHorizontalMode: mode must be 0 to 5");
  assertWriteEnabled();
  m_horizontal = mode;
}

OdDb::TextVertMode OdDbText::verticalMode() const {
  assertReadEnabled();
  return m_vertical;
}

void OdDbText::setVerticalMode(OdDb::TextVertMode mode) {
  if (mode < OdDb::kTextBase || mode > OdDb::kTextTop)
    throw OdError(eInvalidInput, "OdDbText::setVerticalMode: mode must be 0 to 3");
  assertWriteEnabled();
  m_vertical = mode;
}

bool OdDbText::isMirroredInX() const {
  assertReadEnabled();
  return m_mirroredX;
}

void OdDbText::mirrorInX(bool mirrored) {
  assertWriteEnabled();
  m_mirroredX = mirrored;
}

bool OdDbText::isMirroredInY() const {
  assertReadEnabled();
  return m_mirroredY;
}

void OdDbText::mirrorInY(bool mirrored) {
  assertWriteEnabled();
  m_mirroredY = mirrored;
}

OdResult OdDbText::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (!plane.isSimilarity()) return eCannotScaleNonUniformly;
  const OdGePoint3d anchor = matrix * anchorPoint();
  m_position = matrix * m_position;
  m_alignment = matrix * m_alignment;
  const double direction = OdGeAngle::normalize(plane.mapAngle(m_rotation));
  m_rotation = plane.isReversed() ? readableAngle(direction) : direction;
  m_height *= plane.scale();
  m_thickness *= plane.normalScale();
  m_normal = plane.newNormal();
  if (plane.isReversed()) fillMirroredOutline(anchor, !OdGeAngle::isEqual(m_rotation, direction));
  return eOk;
}

OdResult OdDbText::transformAffinely(const OdGeMatrix3d& matrix) {
  assertReadEnabled();
  OdGeVector3d direction(std::cos(m_rotation), std::sin(m_rotation), 0.0);
  direction.transformBy(OdGeMatrix3d::planeToWorld(m_normal));
  OdGeVector3d up = m_normal.crossProduct(direction);
  direction.transformBy(matrix);
  up.transformBy(matrix);
  OdGeVector3d normal = direction.crossProduct(up);
  if (normal.isZeroLength() || direction.isZeroLength()) return eCannotScaleNonUniformly;
  if (matrix.isSingular()) return eDegenerateGeometry;
  // A mirror keeps the image of the old normal, so the text is seen from the same side.
  const bool reversed = normal.dotProduct(matrix * m_normal) < 0.0;
  normal = (reversed ? -normal : normal).normal();
  OdGeVector3d planar = direction;
  planar.transformBy(OdGeMatrix3d::planeToWorld(normal).inverse());
  const double angle = OdGeAngle::normalize(std::atan2(planar.y, planar.x));
  const OdGePoint3d anchor = matrix * anchorPoint();
  assertWriteEnabled();
  m_position = matrix * m_position;
  m_alignment = matrix * m_alignment;
  m_normal = normal;
  m_rotation = reversed ? readableAngle(angle) : angle;
  m_height *= up.length();
  m_widthFactor *= direction.length() / up.length();
  if (reversed) fillMirroredOutline(anchor, !OdGeAngle::isEqual(m_rotation, angle));
  return eOk;
}

OdGePoint3d OdDbText::anchorPoint() const {
  return isJustified() && !isBaselineAligned(m_horizontal) ? m_alignment : m_position;
}

void OdDbText::fillMirroredOutline(const OdGePoint3d& anchor, bool readingReversed) {
  const Outline outline = currentOutline();
  // The mirror left the outline on the far side of the baseline or of its start: move it back
  // by its own width or height.
  const OdGeVector3d shift =
      readingReversed ? outline.along * outline.width : outline.up * outline.height;
  if (isBaselineAligned(m_horizontal)) {
    if (readingReversed) {
      std::swap(m_position, m_alignment);
    } else {
      m_position -= shift;
      m_alignment -= shift;
    }
    return;
  }
  if (readingReversed) {
    if (m_horizontal == OdDb::kTextLeft) {
      m_horizontal = OdDb::kTextRight;
    } else if (m_horizontal == OdDb::kTextRight) {
      m_horizontal = OdDb::kTextLeft;
    }
  } else if (m_horizontal != OdDb::kTextMid) {
    if (m_vertical == OdDb::kTextTop) {
      m_vertical = OdDb::kTextBase;
    } else if (m_vertical != OdDb::kTextVertMid) {
      m_vertical = OdDb::kTextTop;
    }
  }
  m_alignment = anchor;
  m_position = isJustified() ? m_position - shift : anchor;
}

void OdDbText::copyTextFrom(const OdDbText& other) {
  other.assertReadEnabled();
  assertWriteEnabled();
  m_position = other.m_position;
  m_alignment = other.m_alignment;
  m_text = other.m_text;
  m_style = other.m_style;
  m_height = other.m_height;
  m_rotation = other.m_rotation;
  m_widthFactor = other.m_widthFactor;
  m_oblique = other.m_oblique;
  m_horizontal = other.m_horizontal;
  m_vertical = other.m_vertical;
  m_mirroredX = other.m_mirroredX;
  m_mirroredY = other.m_mirroredY;
  m_thickness = other.m_thickness;
  m_normal = other.m_normal;
}

OdResult OdDbText::getTransformedCopy(const OdGeMatrix3d& matrix, OdDbEntityPtr& copy) const {
  assertReadEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (!plane.isSimilarity()) return eCannotScaleNonUniformly;
  return OdDbEntity::getTransformedCopy(matrix, copy);
}

OdResult OdDbText::getStretchPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  points.append(m_position);
  if (isJustified()) points.append(m_alignment);
  return eOk;
}

OdResult OdDbText::moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  assertWriteEnabled();
  const bool first = indices.contains(0);
  const bool second = isJustified() && indices.contains(1);
  if (isBaselineAligned(m_horizontal)) {
    if (first) m_position += offset;
    if (second) m_alignment += offset;
  } else if (first || second) {
    m_position += offset;
    m_alignment += offset;
  }
  return eOk;
}

OdDbText::Outline OdDbText::currentOutline() const {
  Outline outline;
  const OdGeMatrix3d toWorld = OdGeMatrix3d::planeToWorld(m_normal);
  outline.along =
      toWorld.getCsXAxis() * std::cos(m_rotation) + toWorld.getCsYAxis() * std::sin(m_rotation);
  outline.width = characterCount(m_text) * m_height * m_widthFactor * kCharacterAdvance;
  outline.height = m_height;
  outline.origin = m_position;
  if (isBaselineAligned(m_horizontal)) {
    const double span = m_alignment.distanceTo(m_position);
    if (span > OdGeContext::gTol.equalPoint()) {
      outline.along = (m_alignment - m_position) / span;
      if (m_horizontal == OdDb::kTextAlign && outline.width > 0.0)
        outline.height *= span / outline.width;
      outline.width = span;
    }
  } else if (isJustified()) {
    outline.origin = m_alignment;
    if (m_horizontal == OdDb::kTextCenter || m_horizontal == OdDb::kTextMid)
      outline.dx = -0.5 * outline.width;
    if (m_horizontal == OdDb::kTextRight) outline.dx = -outline.width;
    if (m_vertical == OdDb::kTextVertMid || m_horizontal == OdDb::kTextMid)
      outline.dy = -0.5 * outline.height;
    if (m_vertical == OdDb::kTextTop) outline.dy = -outline.height;
  }
  outline.up = m_normal.crossProduct(outline.along);
  return outline;
}

OdResult OdDbText::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  extents = OdGeExtents3d();
  const Outline outline = currentOutline();
  const double slant = std::tan(m_oblique);
  const double sx = m_mirroredX ? -1.0 : 1.0;
  const double sy = m_mirroredY ? -1.0 : 1.0;
  for (double u : {0.0, 1.0}) {
    for (double v : {0.0, 1.0}) {
      const double x = outline.dx + u * outline.width + v * outline.height * slant;
      const double y = outline.dy + v * outline.height;
      extents.addPoint(outline.origin + outline.along * (sx * x) + outline.up * (sy * y));
    }
  }
  if (m_thickness != 0.0) extents.expandBy(m_normal * m_thickness);
  return eOk;
}

OdResult OdDbText::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult res = OdDbEntity::dwgInFields(filer);
  if (res != eOk) return res;
  m_position = filer->rdPoint3d();
  m_alignment = filer->rdPoint3d();
  m_text = filer->rdString();
  m_style = filer->rdString();
  m_height = filer->rdDouble();
  m_rotation = filer->rdDouble();
  m_widthFactor = filer->rdDouble();
  m_oblique = filer->rdDouble();
  const int horizontal = filer->rdInt16();
  const int vertical = filer->rdInt16();
  if (horizontal < OdDb::kTextLeft || horizontal > OdDb::kTextFit || vertical < OdDb::kTextBase ||
      vertical > OdDb::kTextTop)
    return eDwgObjectImproperlyRead;
  m_horizontal = static_cast<OdDb::TextHorzMode>(horizontal);
  m_vertical = static_cast<OdDb::TextVertMode>(vertical);
  m_mirroredX = filer->rdBool();
  m_mirroredY = filer->rdBool();
  m_thickness = filer->rdDouble();
  m_normal = filer->rdVector3d();
  return eOk;
}

void OdDbText::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrPoint3d(m_position);
  filer->wrPoint3d(m_alignment);
  filer->wrString(m_text);
  filer->wrString(m_style);
  filer->wrDouble(m_height);
  filer->wrDouble(m_rotation);
  filer->wrDouble(m_widthFactor);
  filer->wrDouble(m_oblique);
  filer->wrInt16(static_cast<int16_t>(m_horizontal));
  filer->wrInt16(static_cast<int16_t>(m_vertical));
  filer->wrBool(m_mirroredX);
  filer->wrBool(m_mirroredY);
  filer->wrDouble(m_thickness);
  filer->wrVector3d(m_normal);
}

OdResult OdDbText::dxfInTextPart(OdDbDxfFiler* filer) {
  const OdResult res = OdDbEntity::dxfInFields(filer);
  if (res != eOk) return res;
  EntityFiling::requireSubclass(filer, this, "AcDbText");
  OdGePoint3d ocsPosition;
  OdGePoint3d ocsAlignment;
  bool hasAlignment = false;
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    const int code = filer->nextItem();
    if (code == 100) {
      filer->pushBackItem();
      break;
    }
    switch (code) {
      case 1:
        m_text = filer->rdString();
        break;
      case 7:
        m_style = filer->rdString();
        break;
      case 10:
        ocsPosition = filer->rdPoint3d();
        break;
      case 11:
        ocsAlignment = filer->rdPoint3d();
        hasAlignment = true;
        break;
      case 39:
        m_thickness = filer->rdDouble();
        break;
      case 40:
        m_height = filer->rdDouble();
        break;
      case 41:
        m_widthFactor = filer->rdDouble();
        break;
      case 50:
        m_rotation = OdGeAngle::normalize(EntityFiling::rdAngleDegrees(filer));
        break;
      case 51:
        m_oblique = EntityFiling::rdAngleDegrees(filer);
        break;
      case 71: {
        const int flags = filer->rdInt16();
        m_mirroredX = (flags & kMirroredInX) != 0;
        m_mirroredY = (flags & kMirroredInY) != 0;
        break;
      }
      case 72: {
        const int mode = filer->rdInt16();
        if (mode < OdDb::kTextLeft || mode > OdDb::kTextFit) return eInvalidInput;
        m_horizontal = static_cast<OdDb::TextHorzMode>(mode);
        break;
      }
      case 210:
        m_normal = EntityFiling::rdNormal(filer);
        break;
      default:
        break;
    }
  }
  if (!(m_height > 0.0) || !(m_widthFactor > 0.0)) return eInvalidInput;
  m_position = EntityFiling::toWcs(m_normal, ocsPosition);
  m_alignment = EntityFiling::toWcs(m_normal, hasAlignment ? ocsAlignment : ocsPosition);
  return eOk;
}

OdResult OdDbText::dxfInVerticalMode(OdDbDxfFiler* filer) {
  const int mode = filer->rdInt16();
  if (mode < OdDb::kTextBase || mode > OdDb::kTextTop) return eInvalidInput;
  m_vertical = static_cast<OdDb::TextVertMode>(mode);
  return eOk;
}

void OdDbText::dxfOutTextPart(OdDbDxfFiler* filer, bool alwaysNameStyle) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbText");
  if (m_thickness != 0.0) filer->wrDouble(39, m_thickness);
  filer->wrPoint3d(10, EntityFiling::toOcs(m_normal, m_position));
  filer->wrDouble(40, m_height);
  filer->wrString(1, m_text);
  if (m_rotation != 0.0) EntityFiling::wrAngleDegrees(filer, 50, m_rotation);
  if (m_widthFactor != 1.0) filer->wrDouble(41, m_widthFactor);
  if (m_oblique != 0.0) EntityFiling::wrAngleDegrees(filer, 51, m_oblique);
  if (alwaysNameStyle || !m_style.iEquals("Standard")) filer->wrString(7, m_style);
  const int flags = (m_mirroredX ? kMirroredInX : 0) | (m_mirroredY ? kMirroredInY : 0);
  if (flags != 0) filer->wrInt16(71, static_cast<int16_t>(flags));
  if (m_horizontal != OdDb::kTextLeft) filer->wrInt16(72, static_cast<int16_t>(m_horizontal));
  if (m_horizontal != OdDb::kTextLeft || m_vertical != OdDb::kTextBase)
    filer->wrPoint3d(11, EntityFiling::toOcs(m_normal, m_alignment));
  if (!m_normal.isEqualTo(OdGeVector3d::kZAxis)) filer->wrVector3d(210, m_normal);
}

OdResult OdDbText::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult res = dxfInTextPart(filer);
  if (res != eOk) return res;
  EntityFiling::requireSubclass(filer, this, "AcDbText");
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    if (filer->nextItem() != 73) continue;
    const OdResult modeRes = dxfInVerticalMode(filer);
    if (modeRes != eOk) return modeRes;
  }
  return eOk;
}

void OdDbText::dxfOutFields(OdDbDxfFiler* filer) const {
  dxfOutTextPart(filer, false);
  filer->wrSubclassMarker("AcDbText");
  if (m_vertical != OdDb::kTextBase) filer->wrInt16(73, static_cast<int16_t>(m_vertical));
}
