// Values as users read and type them: numbers without the noise of their last bits, read back
// whole or not at all, angles in degrees with or without their sign, points with two or three
// coordinates, and every kind read back from what it was written as.
#include <gtest/gtest.h>

#include <clocale>

#include "authoring/CJbCustBlockValueText.h"

using ValueText = CJbCustBlockValueText;

TEST(ValueText, NumbersShowWithoutNoiseAndReadBackWholeOrNotAtAll) {
  EXPECT_EQ(ValueText::FormatNumber(899.9999999999999), OdString("900"));
  EXPECT_EQ(ValueText::FormatNumber(0.1 + 0.2), OdString("0.3"));
  EXPECT_EQ(ValueText::FormatNumber(-3e-12), OdString("0"));
  EXPECT_EQ(ValueText::FormatNumber(1234567), OdString("1234567"));
  EXPECT_EQ(ValueText::FormatNumber(-2.5), OdString("-2.5"));

  double value = 0;
  EXPECT_TRUE(ValueText::ParseNumber(" 1140 ", value));
  EXPECT_EQ(value, 1140);
  EXPECT_TRUE(ValueText::ParseNumber("+2.5e3", value));
  EXPECT_EQ(value, 2500);
  EXPECT_TRUE(ValueText::ParseNumber("-.5", value));
  EXPECT_EQ(value, -0.5);
  for (const char* refused :
       {"", " ", "wide", "12abc", "1,5", "0x10", "nan", "inf", "1e999", "+-1"})
    EXPECT_FALSE(ValueText::ParseNumber(refused, value)) << refused;
  EXPECT_EQ(value, -0.5);

  // A decimal comma in the user's locale changes nothing.
  const char* previous = std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
  EXPECT_EQ(ValueText::FormatNumber(2.5), OdString("2.5"));
  EXPECT_TRUE(ValueText::ParseNumber("2.5", value));
  EXPECT_EQ(value, 2.5);
  if (previous) std::setlocale(LC_NUMERIC, "C");
}

TEST(ValueText, EveryKindReadsBackFromWhatItWasWrittenAs) {
  const OdResBufPtr values[] = {
      OdResBuf::newRb(OdResBuf::kRtDouble, 1100.0),
      OdResBuf::newRb(OdResBuf::kRtAngle, ValueText::ToRadians(90)),
      OdResBuf::newRb(OdResBuf::kRtString, OdString("900x1200")),
      OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d(1.5, -2, 0)),
      OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d(1, 2, 3)),
      OdResBuf::newRb(OdResBuf::kRtInt32, -7),
  };
  const char* const texts[] = {"1100", "90\xC2\xB0", "900x1200", "1.5,-2", "1,2,3", "-7"};
  for (std::size_t i = 0; i < std::size(values); ++i) {
    EXPECT_EQ(ValueText::Format(values[i].get()), OdString(texts[i])) << i;
    const OdResBufPtr read = ValueText::Parse(texts[i], values[i]->restype());
    ASSERT_FALSE(read.isNull()) << texts[i];
    EXPECT_EQ(ValueText::Format(read.get()), OdString(texts[i])) << i;
  }
  EXPECT_EQ(ValueText::Format(nullptr), OdString());

  // Degrees may be typed without their sign; they are not brought into a turn.
  EXPECT_NEAR(ValueText::Parse(" -30 ", OdResBuf::kRtAngle)->getDouble(), ValueText::ToRadians(-30),
              1e-12);
  EXPECT_DOUBLE_EQ(ValueText::WithinTurn(-30), 330);
  EXPECT_DOUBLE_EQ(ValueText::WithinTurn(720), 0);
  for (const auto& [text, type] :
       std::initializer_list<std::pair<const char*, int>>{{"1", OdResBuf::kRtPoint3d},
                                                          {"1,2,3,4", OdResBuf::kRtPoint3d},
                                                          {"1,,2", OdResBuf::kRtPoint3d},
                                                          {"2.5", OdResBuf::kRtInt32},
                                                          {"\xC2\xB0", OdResBuf::kRtAngle},
                                                          {"1", OdResBuf::kDxfBool}})
    EXPECT_TRUE(ValueText::Parse(text, type).isNull()) << text;
}
