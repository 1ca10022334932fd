// Multiline-text formatting removal and the indexed colour table.
#include <gtest/gtest.h>

#include "render/AciColorTable.h"
#include "render/MTextPlainText.h"

TEST(MTextPlainText, FormattingCodesGoAndTheTextStays) {
  EXPECT_EQ(MTextPlainText::paragraphs("{\\fArial|b1|i0;Bold} and \\H2.5x;big\\Pnext"),
            (QStringList{"Bold and big", "next"}));
  // Escaped backslash and braces stay, a non-breaking space and a stacked fraction read plainly.
  EXPECT_EQ(MTextPlainText::paragraphs("a\\\\b \\{x\\} 1\\~m \\S1^2; \\Lunder\\l"),
            (QStringList{"a\\b {x} 1\u00A0m 1/2 under"}));
  EXPECT_EQ(MTextPlainText::paragraphs("\\A1;\\C3;\\pxqc;Centred\\Ncolumn"),
            (QStringList{"Centred", "column"}));
  // A code cut off at the end loses nothing before it.
  EXPECT_EQ(MTextPlainText::paragraphs("tail \\H2"), (QStringList{"tail "}));
  EXPECT_EQ(MTextPlainText::paragraphs("tail \\"), (QStringList{"tail \\"}));
  EXPECT_EQ(MTextPlainText::decodeSpecialCharacters("45%%d %%p0.1 %%c20 100%%% %%uU"),
            QString::fromUtf8("45° ±0.1 ⌀20 100% U"));
}

TEST(AciColorTable, NamedHuesShadesGreysAndTheForeground) {
  EXPECT_EQ(AciColorTable::color(1, Qt::white), QColor(255, 0, 0));
  EXPECT_EQ(AciColorTable::color(5, Qt::white), QColor(0, 0, 255));
  EXPECT_EQ(AciColorTable::color(8, Qt::white), QColor(128, 128, 128));
  // Index 7 and indexes out of range contrast with the background.
  EXPECT_EQ(AciColorTable::color(7, Qt::white), QColor(Qt::black));
  EXPECT_EQ(AciColorTable::color(7, Qt::black), QColor(Qt::white));
  EXPECT_EQ(AciColorTable::color(0, Qt::black), QColor(Qt::white));
  EXPECT_EQ(AciColorTable::color(256, Qt::white), QColor(Qt::black));
  // Hue wheel: 10 red, 11 pale red, 30 orange, 18 dark red; greys at the end.
  EXPECT_EQ(AciColorTable::color(10, Qt::white), QColor(255, 0, 0));
  EXPECT_EQ(AciColorTable::color(11, Qt::white), QColor(255, 127, 127));
  EXPECT_EQ(AciColorTable::color(30, Qt::white), QColor(255, 127, 0));
  EXPECT_EQ(AciColorTable::color(18, Qt::white), QColor(76, 0, 0));
  EXPECT_EQ(AciColorTable::color(250, Qt::white), QColor(51, 51, 51));
  EXPECT_EQ(AciColorTable::color(255, Qt::white), QColor(255, 255, 255));
}
