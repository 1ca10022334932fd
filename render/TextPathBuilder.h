// Text as filled outlines in world XY: single-line text and attributes with their justification,
// width factor, slant and mirroring, and multiline text broken into paragraphs and wrapped to
// its column, all in one Qt font scaled so that capitals have the text height.
#pragma once

#include <QFont>
#include <QHash>
#include <QPainterPath>
#include <QString>

#include "platform/db/entities/OdDbAttributeBase.h"
#include "platform/ge/OdGeMatrix3d.h"

class OdDbText;
class OdDbMText;

class TextPathBuilder {
 public:
  // Where and how one line of text sits.
  struct LineText {
    QString text;
    OdGePoint3d position;
    OdGePoint3d alignment;
    double height = 1.0;
    double rotation = 0.0;
    double widthFactor = 1.0;
    double oblique = 0.0;
    OdDb::TextHorzMode horizontal = OdDb::kTextLeft;
    OdDb::TextVertMode vertical = OdDb::kTextBase;
    bool mirroredX = false;
    bool mirroredY = false;
    OdGeVector3d normal = OdGeVector3d::kZAxis;
  };

  explicit TextPathBuilder(const QFont& font);

  static LineText lineOf(const OdDbText* text);
  // An attribute or attribute definition showing its value, or its tag when showTag.
  static LineText lineOf(const OdDbAttributeBase* attribute, bool showTag);

  // The glyph outlines placed by xform (entity coordinates to world).
  QPainterPath singleLine(const LineText& line, const OdGeMatrix3d& xform) const;
  QPainterPath multiLine(const OdDbMText* mtext, const OdGeMatrix3d& xform) const;

 private:
  // Outlines of strings kept at most, so that drawings of many different texts stay bounded.
  static constexpr int kMaxKeptOutlines = 4096;

  // The glyphs of text in font units, baseline on y = 0, y down. Kept by string: taking a
  // string's outlines from the font costs more than drawing them, and drawings repeat strings.
  const QPainterPath& glyphs(const QString& text) const;
  double advance(const QString& text) const;
  // Lines of a paragraph that fit maxWidth (font units); no wrapping when maxWidth <= 0.
  QStringList wrap(const QString& paragraph, double maxWidth) const;

  QFont m_font;
  double m_capHeight;
  double m_descent;
  mutable QHash<QString, QPainterPath> m_outlines;
};
