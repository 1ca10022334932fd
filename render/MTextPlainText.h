// The plain text of formatted multiline text: paragraphs and characters as a reader sees them,
// with the inline formatting codes (fonts, heights, colours, alignment, stacking) removed.
#pragma once

#include <QString>
#include <QStringList>

class MTextPlainText {
 public:
  // One entry per paragraph ("\P" and column breaks separate them).
  static QStringList paragraphs(const QString& contents);
  // Single-line text codes: "%%d" degree, "%%p" plus-minus, "%%c" diameter, "%%%" percent;
  // the underline and overline switches "%%u" and "%%o" are dropped.
  static QString decodeSpecialCharacters(const QString& text);
};
