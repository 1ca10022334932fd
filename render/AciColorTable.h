// The 256 indexed drawing colours as RGB: the seven named colours, the 24 hues in five shades
// and two saturations, and the six greys.
#pragma once

#include <QColor>

class AciColorTable {
 public:
  // The colour of index 1..255; index 7 (and anything outside the range) is the foreground,
  // which is the opposite of the background: black on light, white on dark.
  static QColor color(int index, const QColor& background);
};
