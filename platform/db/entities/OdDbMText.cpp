#include "platform/db/entities/OdDbMText.h"

#include <algorithm>
#include <cmath>

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/ge/PlanarTransform.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbMText, OdDbEntity, "MTEXT", "", 0)

namespace {
constexpr double kLinePitch = 5.0 / 3.0;
// Drawing files split contents into chunks of this many bytes.
constexpr int kChunkLength = 250;

// The paragraph count and the character count of the longest paragraph; paragraphs end at "\P"
// or a line break.
void measure(const OdString& contents, int& paragraphs, int& longest) {
  paragraphs = 1;
  longest = 0;
  int current = 0;
  const std::string& text = contents.str();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool breakCode = text[i] == '\\' && i + 1 < text.size() && text[i + 1] == 'P';
    if (breakCode || text[i] == '\n') {
      longest = std::max(longest, current);
      current = 0;
      ++paragraphs;
      i += breakCode ? 1 : 0;
    } else if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
      ++current;
    }
  }
  longest = std::max(longest, current);
}

OdGeVector3d inPlane(const OdGeVector3d& direction, const OdGeVector3d& normal) {
  return (direction - normal * direction.dotProduct(normal)).normal();
}
}  // namespace

OdGePoint3d OdDbMText::location() const {
  assertReadEnabled();
  return m_location;
}

void OdDbMText::setLocation(const OdGePoint3d& location) {
  assertWriteEnabled();
  m_location = location;
}

OdGeVector3d OdDbMText::direction() const {
  assertReadEnabled();
  return m_direction;
}

void OdDbMText::setDirection(const OdGeVector3d& direction) {
  const OdGeVector3d projected = inPlane(direction, m_normal);
  if (projected.isZeroLength())
    throw OdError(eInvalidInput, "OdDbMText::setDirection: direction not in the text plane");
  assertWriteEnabled();
  m_direction = projected;
}

OdGeVector3d OdDbMText::normal() const {
  assertReadEnabled();
  return m_normal;
}

void OdDbMText::setNormal(const OdGeVector3d& normal) {
  if (normal.isZeroLength()) throw OdError(eInvalidInput, "OdDbMText::setNormal: zero normal");
  assertWriteEnabled();
  m_normal = normal.normal();
  const OdGeVector3d projected = inPlane(m_direction, m_normal);
  m_direction =
      projected.isZeroLength() ? OdGeMatrix3d::planeToWorld(m_normal).getCsXAxis() : projected;
}

double OdDbMText::width() const {
  assertReadEnabled();
  return m_width;
}

void OdDbMText::setWidth(double width) {
  if (width < 0.0) throw OdError(eInvalidInput, "OdDbMText::setWidth: width must be >= 0");
  assertWriteEnabled();
  m_width = width;
}

double OdDbMText::textHeight() const {
  assertReadEnabled();
  return m_textHeight;
}

void OdDbMText::setTextHeight(double height) {
  if (!(height > 0.0)) throw OdError(eInvalidInput, "OdDbMText::setTextHeight: height must be > 0");
  assertWriteEnabled();
  m_textHeight = height;
}

OdDbMText::AttachmentPoint OdDbMText::attachment() const {
  assertReadEnabled();
  return m_attachment;
}

void OdDbMText::setAttachment(AttachmentPoint attachment) {
  if (attachment < kTopLeft || attachment > kBottomRight)
    throw OdError(eInvalidInput, "OdDbMText::setAttachment: attachment must be 1 to 9");
  assertWriteEnabled();
  m_attachment = attachment;
}

OdString OdDbMText::contents() const {
  assertReadEnabled();
  return m_contents;
}

void OdDbMText::setContents(const OdString& contents) {
  assertWriteEnabled();
  m_contents = contents;
}

OdResult OdDbMText::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (!plane.isSimilarity()) return eCannotScaleNonUniformly;
  OdGeVector3d direction = inPlane(matrix * m_direction, plane.newNormal());
  if (plane.isReversed()) {
    const OdGeMatrix3d toPlane = OdGeMatrix3d::worldToPlane(plane.newNormal());
    const OdGeVector3d local = toPlane * direction;
    // The outline is the mirror image of the old one about the location when its columns
    // (reversed reading) or its rows (text turned over) trade ends.
    const int column = (m_attachment - 1) % 3;
    const int row = (m_attachment - 1) / 3;
    if (readsBackwards(local.x, local.y)) {
      direction.negate();
      m_attachment = static_cast<AttachmentPoint>(row * 3 + (2 - column) + 1);
    } else {
      m_attachment = static_cast<AttachmentPoint>((2 - row) * 3 + column + 1);
    }
  }
  m_location = matrix * m_location;
  m_direction = direction;
  m_normal = plane.newNormal();
  m_width *= plane.scale();
  m_textHeight *= plane.scale();
  return eOk;
}

OdResult OdDbMText::getTransformedCopy(const OdGeMatrix3d& matrix, OdDbEntityPtr& copy) const {
  assertReadEnabled();
  const PlanarTransform plane(matrix, m_normal);
  if (!plane.isValid()) return eDegenerateGeometry;
  if (!plane.isSimilarity()) return eCannotScaleNonUniformly;
  return OdDbEntity::getTransformedCopy(matrix, copy);
}

OdResult OdDbMText::getStretchPoints(OdGePoint3dArray& points) const {
  assertReadEnabled();
  points.append(m_location);
  return eOk;
}

OdResult OdDbMText::moveStretchPointsAt(const OdIntArray& indices, const OdGeVector3d& offset) {
  assertWriteEnabled();
  if (indices.contains(0)) m_location += offset;
  return eOk;
}

OdResult OdDbMText::getGeomExtents(OdGeExtents3d& extents) const {
  assertReadEnabled();
  int paragraphs = 0;
  int longest = 0;
  measure(m_contents, paragraphs, longest);
  const double width = m_width > 0.0 ? m_width : longest * m_textHeight * kCharacterAdvance;
  const double height = paragraphs * m_textHeight * kLinePitch;
  const int column = (m_attachment - 1) % 3;
  const int row = (m_attachment - 1) / 3;
  const OdGeVector3d up = m_normal.crossProduct(m_direction);
  const OdGePoint3d topLeft =
      m_location - m_direction * (0.5 * column * width) + up * (0.5 * row * height);
  extents = OdGeExtents3d();
  extents.addPoint(topLeft).addPoint(topLeft + m_direction * width);
  extents.addPoint(topLeft - up * height).addPoint(topLeft + m_direction * width - up * height);
  return eOk;
}

OdResult OdDbMText::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult res = OdDbEntity::dwgInFields(filer);
  if (res != eOk) return res;
  m_location = filer->rdPoint3d();
  m_direction = filer->rdVector3d();
  m_normal = filer->rdVector3d();
  m_width = filer->rdDouble();
  m_textHeight = filer->rdDouble();
  const int attachment = filer->rdInt16();
  if (attachment < kTopLeft || attachment > kBottomRight) return eDwgObjectImproperlyRead;
  m_attachment = static_cast<AttachmentPoint>(attachment);
  m_contents = filer->rdString();
  m_style = filer->rdString();
  return eOk;
}

void OdDbMText::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbEntity::dwgOutFields(filer);
  filer->wrPoint3d(m_location);
  filer->wrVector3d(m_direction);
  filer->wrVector3d(m_normal);
  filer->wrDouble(m_width);
  filer->wrDouble(m_textHeight);
  filer->wrInt16(static_cast<int16_t>(m_attachment));
  filer->wrString(m_contents);
  filer->wrString(m_style);
}

OdResult OdDbMText::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult res = OdDbEntity::dxfInFields(filer);
  if (res != eOk) return res;
  EntityFiling::requireSubclass(filer, this, "AcDbMText");
  std::string contents;
  std::string last;
  double rotation = 0.0;
  bool hasDirection = false;
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    switch (filer->nextItem()) {
      case 10:
        m_location = filer->rdPoint3d();
        break;
      case 11: {
        OdGePoint3d direction;
        direction = filer->rdPoint3d();
        m_direction = direction.asVector();
        hasDirection = true;
        break;
      }
      case 40:
        m_textHeight = filer->rdDouble();
        break;
      case 41:
        m_width = filer->rdDouble();
        break;
      case 71: {
        const int attachment = filer->rdInt16();
        if (attachment < kTopLeft || attachment > kBottomRight) return eInvalidInput;
        m_attachment = static_cast<AttachmentPoint>(attachment);
        break;
      }
      case 3:
        contents += filer->rdString().str();
        break;
      case 1:
        last = filer->rdString().str();
        break;
      case 7:
        m_style = filer->rdString();
        break;
      case 50:
        rotation = filer->rdDouble();
        break;
      case 210:
        m_normal = EntityFiling::rdNormal(filer);
        break;
      default:
        break;
    }
  }
  m_contents = OdString(contents + last);
  if (!(m_textHeight > 0.0)) return eInvalidInput;
  const OdGeMatrix3d axes = OdGeMatrix3d::planeToWorld(m_normal);
  if (!hasDirection || inPlane(m_direction, m_normal).isZeroLength()) {
    m_direction = axes.getCsXAxis() * std::cos(rotation) + axes.getCsYAxis() * std::sin(rotation);
  }
  // A direction already in the plane and of unit length stays bit for bit, so that rewriting a
  // file changes nothing.
  const bool settled = std::abs(m_direction.length() - 1.0) <= 1e-12 &&
                       std::abs(m_direction.dotProduct(m_normal)) <= 1e-12;
  if (!settled) m_direction = inPlane(m_direction, m_normal);
  return eOk;
}

void OdDbMText::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbEntity::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbMText");
  filer->wrPoint3d(10, m_location);
  filer->wrDouble(40, m_textHeight);
  filer->wrDouble(41, m_width);
  filer->wrInt16(71, static_cast<int16_t>(m_attachment));
  filer->wrInt16(72, 1);
  const std::string& text = m_contents.str();
  std::size_t start = 0;
  // Chunks are cut between UTF-8 sequences so every tag stays valid text.
  while (text.size() - start > static_cast<std::size_t>(kChunkLength)) {
    std::size_t cut = start + kChunkLength;
    while (cut > start && (static_cast<unsigned char>(text[cut]) & 0xC0) == 0x80)
      --cut;
    filer->wrString(3, OdString(text.substr(start, cut - start)));
    start = cut;
  }
  filer->wrString(1, OdString(text.substr(start)));
  if (!m_style.iEquals("Standard")) filer->wrString(7, m_style);
  if (!m_normal.isEqualTo(OdGeVector3d::kZAxis)) filer->wrVector3d(210, m_normal);
  filer->wrPoint3d(11, m_direction.asPoint());
}
