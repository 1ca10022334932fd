// Text placement: glyph outlines are taken from Qt in font units, then mapped by one affine
// transform per line that carries the scale, slant, justification offset, mirroring, reading
// direction, plane and block transform together.
#include "render/TextPathBuilder.h"

#include <QFontMetricsF>
#include <QTransform>
#include <cmath>

#include "platform/db/entities/OdDbMText.h"
#include "platform/db/entities/OdDbText.h"
#include "render/MTextPlainText.h"

namespace {
// A plan-view transform from a local frame (origin, x and y axes in world) under xform.
QTransform planView(const OdGeMatrix3d& xform, const OdGePoint3d& origin, const OdGeVector3d& x,
                    const OdGeVector3d& y) {
  OdGeMatrix3d local;
  local.setCoordSystem(origin, x, y, x.crossProduct(y));
  const OdGeMatrix3d m = xform * local;
  return QTransform(m(0, 0), m(1, 0), m(0, 1), m(1, 1), m(0, 3), m(1, 3));
}

// Reading direction at angle in the plane of normal.
OdGeVector3d directionInPlane(const OdGeVector3d& normal, double angle) {
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(normal);
  return plane.getCsXAxis() * std::cos(angle) + plane.getCsYAxis() * std::sin(angle);
}
}  // namespace

TextPathBuilder::TextPathBuilder(const QFont& font) : m_font(font) {
  const QFontMetricsF metrics(m_font);
  m_capHeight = metrics.capHeight() > 0.0 ? metrics.capHeight() : metrics.ascent() * 0.7;
  m_descent = metrics.descent();
}

TextPathBuilder::LineText TextPathBuilder::lineOf(const OdDbText* text) {
  LineText line;
  line.text =
      MTextPlainText::decodeSpecialCharacters(QString::fromStdString(text->textString().str()));
  line.position = text->position();
  line.alignment = text->alignmentPoint();
  line.height = text->height();
  line.rotation = text->rotation();
  line.widthFactor = text->widthFactor();
  line.oblique = text->oblique();
  line.horizontal = text->horizontalMode();
  line.vertical = text->verticalMode();
  line.mirroredX = text->isMirroredInX();
  line.mirroredY = text->isMirroredInY();
  line.normal = text->normal();
  return line;
}

TextPathBuilder::LineText TextPathBuilder::lineOf(const OdDbAttributeBase* attribute,
                                                  bool showTag) {
  LineText line = lineOf(static_cast<const OdDbText*>(attribute));
  if (showTag)
    line.text =
        MTextPlainText::decodeSpecialCharacters(QString::fromStdString(attribute->tag().str()));
  return line;
}

const QPainterPath& TextPathBuilder::glyphs(const QString& text) const {
  const auto kept = m_outlines.constFind(text);
  if (kept != m_outlines.constEnd()) return *kept;
  if (m_outlines.size() >= kMaxKeptOutlines) m_outlines.clear();
  QPainterPath& path = m_outlines[text];
  path.addText(0.0, 0.0, m_font, text);
  return path;
}

double TextPathBuilder::advance(const QString& text) const {
  return QFontMetricsF(m_font).horizontalAdvance(text);
}

QPainterPath TextPathBuilder::singleLine(const LineText& line, const OdGeMatrix3d& xform) const {
  if (line.text.isEmpty() || line.height <= 0.0) return {};
  double scaleY = line.height / m_capHeight;
  double scaleX = scaleY * line.widthFactor;
  const double natural = advance(line.text);
  OdGeVector3d along = directionInPlane(line.normal, line.rotation);
  OdGePoint3d origin = line.position;
  double dx = 0.0;
  double dy = 0.0;
  const bool baselineFitted =
      line.horizontal == OdDb::kTextAlign || line.horizontal == OdDb::kTextFit;
  const bool justified = line.horizontal != OdDb::kTextLeft || line.vertical != OdDb::kTextBase;
  if (baselineFitted) {
    // The baseline runs from the position to the alignment point; aligned text keeps its
    // proportions, fitted text keeps its height.
    const OdGeVector3d span = line.alignment - line.position;
    if (!span.isZeroLength() && natural > 0.0) {
      along = span.normal();
      scaleX = span.length() / natural;
      if (line.horizontal == OdDb::kTextAlign) scaleY = scaleX / line.widthFactor;
    }
  } else if (justified) {
    origin = line.alignment;
    const double width = natural * scaleX;
    const double height = line.height;
    if (line.horizontal == OdDb::kTextCenter || line.horizontal == OdDb::kTextMid)
      dx = -0.5 * width;
    if (line.horizontal == OdDb::kTextRight) dx = -width;
    if (line.vertical == OdDb::kTextVertMid || line.horizontal == OdDb::kTextMid)
      dy = -0.5 * height;
    if (line.vertical == OdDb::kTextTop) dy = -height;
    if (line.vertical == OdDb::kTextBottom) dy = m_descent * scaleY;
  }
  const double slant = std::tan(line.oblique);
  // Font units (y down) to the text's own frame (x along the baseline, y up).
  const QTransform toLine(scaleX, 0.0, -slant * scaleY, -scaleY, dx, dy);
  const OdGeVector3d up = line.normal.normal().crossProduct(along);
  const QTransform toWorld = planView(xform, origin, along * (line.mirroredX ? -1.0 : 1.0),
                                      up * (line.mirroredY ? -1.0 : 1.0));
  return (toLine * toWorld).map(glyphs(line.text));
}

QStringList TextPathBuilder::wrap(const QString& paragraph, double maxWidth) const {
  if (maxWidth <= 0.0 || advance(paragraph) <= maxWidth) return {paragraph};
  QStringList lines;
  QString current;
  for (const QString& word : paragraph.split(' ')) {
    const QString candidate = current.isEmpty() ? word : current + ' ' + word;
    if (!current.isEmpty() && advance(candidate) > maxWidth) {
      lines << current;
      current = word;
    } else {
      current = candidate;
    }
  }
  lines << current;
  return lines;
}

QPainterPath TextPathBuilder::multiLine(const OdDbMText* mtext, const OdGeMatrix3d& xform) const {
  const double height = mtext->textHeight();
  const double scale = height / m_capHeight;
  QStringList lines;
  for (const QString& paragraph :
       MTextPlainText::paragraphs(QString::fromStdString(mtext->contents().str())))
    lines << wrap(paragraph, mtext->width() / scale);
  // Standard line pitch: five thirds of the text height.
  const double pitch = height * 5.0 / 3.0;
  const double block = height + pitch * (lines.size() - 1);
  const int attachment = static_cast<int>(mtext->attachment()) - 1;
  const int column = attachment % 3;  // 0 left, 1 centre, 2 right
  const int row = attachment / 3;     // 0 top, 1 middle, 2 bottom
  const double firstBaseline = -height + block * 0.5 * row;
  const OdGeVector3d along = mtext->direction();
  const OdGeVector3d up = mtext->normal().normal().crossProduct(along);
  const QTransform toWorld = planView(xform, mtext->location(), along, up);
  QPainterPath result;
  for (int i = 0; i < lines.size(); ++i) {
    const double width = advance(lines[i]) * scale;
    const QTransform toLine(scale, 0.0, 0.0, -scale, -0.5 * width * column,
                            firstBaseline - pitch * i);
    result.addPath((toLine * toWorld).map(glyphs(lines[i])));
  }
  return result;
}
