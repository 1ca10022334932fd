// Indexed drawing colours: computed once into a table from the hue wheel the index encodes.
#include "render/AciColorTable.h"

#include <array>
#include <cmath>

namespace {
// Hue (degrees), saturation (0..1) and value (0..255) to RGB, fractions cut off as the index
// table has them (index 11 is 255, 127, 127).
QColor fromHsv(int hue, double saturation, int value) {
  const double chroma = value * saturation;
  const double sector = hue / 60.0;
  const double second = chroma * (1.0 - std::fabs(std::fmod(sector, 2.0) - 1.0));
  const double low = value - chroma;
  double r = 0.0;
  double g = 0.0;
  double b = 0.0;
  switch (static_cast<int>(sector)) {
    case 0:
      r = chroma;
      g = second;
      break;
    case 1:
      r = second;
      g = chroma;
      break;
    case 2:
      g = chroma;
      b = second;
      break;
    case 3:
      g = second;
      b = chroma;
      break;
    case 4:
      r = second;
      b = chroma;
      break;
    default:
      r = chroma;
      b = second;
      break;
  }
  return QColor(static_cast<int>(r + low), static_cast<int>(g + low), static_cast<int>(b + low));
}

std::array<QColor, 256> buildTable() {
  std::array<QColor, 256> table;
  table[1] = QColor(255, 0, 0);
  table[2] = QColor(255, 255, 0);
  table[3] = QColor(0, 255, 0);
  table[4] = QColor(0, 255, 255);
  table[5] = QColor(0, 0, 255);
  table[6] = QColor(255, 0, 255);
  table[7] = QColor(255, 255, 255);
  table[8] = QColor(128, 128, 128);
  table[9] = QColor(192, 192, 192);
  // 10..249: the tens give the hue in steps of 15 degrees, the units the shade (pairs of
  // decreasing value) and, when odd, half saturation.
  static const int kValues[5] = {255, 204, 153, 127, 76};
  for (int index = 10; index < 250; ++index) {
    const int hue = (index / 10 - 1) * 15;
    const int unit = index % 10;
    const double saturation = (unit % 2 == 0) ? 1.0 : 0.5;
    table[static_cast<std::size_t>(index)] = fromHsv(hue, saturation, kValues[unit / 2]);
  }
  static const int kGreys[6] = {51, 80, 105, 130, 190, 255};
  for (int index = 250; index < 256; ++index) {
    const int grey = kGreys[index - 250];
    table[static_cast<std::size_t>(index)] = QColor(grey, grey, grey);
  }
  return table;
}
}  // namespace

QColor AciColorTable::color(int index, const QColor& background) {
  static const std::array<QColor, 256> table = buildTable();
  if (index < 1 || index > 255 || index == 7)
    return background.lightness() > 127 ? QColor(Qt::black) : QColor(Qt::white);
  return table[static_cast<std::size_t>(index)];
}
