// Property values as users type and read them: lengths checked against their author's limits,
// angles in degrees brought into a turn and checked against ranges that may wrap through zero,
// flips and states by name, and numbers shown without the noise of their last bits.
#include <gtest/gtest.h>

#include <cmath>

#include "authoring/CJbCustBlockAuthor.h"
#include "cli/blocks/CustomBlockProperty.h"
#include "parameters/CJbCustBlockFlipParameter.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockRotationParameter.h"
#include "platform/host/CJbCustBlocksModuleLoader.h"

namespace {
constexpr double kPi = 3.14159265358979323846;
double radians(double degrees) {
  return degrees * kPi / 180;
}
}  // namespace

class CustomBlockPropertyText : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { ASSERT_TRUE(CJbCustBlocksModuleLoader::Load(JBCB_BIN_DIR)); }

  void SetUp() override {
    database = OdDbDatabase::createObject();
    author = std::make_unique<CJbCustBlockAuthor>(database.get(), "Part");
    width = author->AppendParameter<CJbCustBlockLinearParameter>(
        "Width", {OdGePoint3d::kOrigin, OdGePoint3d(899.9999999999999, 0, 0)});
    CJbCustBlockGraphAuthor::SetValueSet(
        width.get(), 0, CJbCustBlockGraphAuthor::ValueSet(OdArray<double>{600, 900, 1200}));
    turn = author->AppendParameter<CJbCustBlockRotationParameter>(
        "Turn", {OdGePoint3d::kOrigin, OdGePoint3d(10, 0, 0), OdGePoint3d(10, 0, 0)});
    CJbCustBlockGraphAuthor::SetValueSet(turn.get(), 0, {radians(5), radians(350), radians(20)});
    side = author->AppendParameter<CJbCustBlockFlipParameter>(
        "Side", {OdGePoint3d::kOrigin, OdGePoint3d(0, 10, 0)});
  }

  const CustomBlockProperty& property(const std::string& name) {
    properties = CustomBlockProperty::of(author->Graph());
    for (const CustomBlockProperty& p : properties)
      if (p.name() == name) return p;
    throw std::runtime_error("no property " + name);
  }

  // The value typed as `text`, or the error.
  std::string parse(const std::string& name, const std::string& text, OdResBufPtr& value) {
    const CustomBlockProperty& p = property(name);
    const CJbCustBlockParameterPtr parameter =
        CJbCustBlockParameter::cast(author->Graph()->GetNode(p.parameterId()).get());
    std::string error;
    return p.parse(parameter.get(), text, value, error) ? "" : error;
  }

  OdDbDatabasePtr database;
  std::unique_ptr<CJbCustBlockAuthor> author;
  CJbCustBlockLinearParameterPtr width;
  CJbCustBlockRotationParameterPtr turn;
  CJbCustBlockFlipParameterPtr side;
  std::vector<CustomBlockProperty> properties;
};

TEST_F(CustomBlockPropertyText, LengthsStayWithinTheirListAndShowWithoutNoise) {
  EXPECT_EQ(property("Width").text(width.get()), "900");
  EXPECT_EQ(property("Width").typeName(), "distance");
  OdResBufPtr value;
  EXPECT_EQ(parse("Width", "1140", value), "");
  EXPECT_EQ(value->restype(), OdResBuf::kRtDouble);
  EXPECT_EQ(value->getDouble(), 1140);
  for (const char* refused : {"1300", "500", "-700", "wide", "", "nan"})
    EXPECT_EQ(
        parse("Width", refused, value),
        std::string("Width takes a length from the list 600, 900, 1200, not \"") + refused + "\"");
}

TEST_F(CustomBlockPropertyText, AnglesAreDegreesWithinARangeThatWrapsThroughZero) {
  EXPECT_EQ(property("Turn").text(turn.get()), "0");
  OdResBufPtr value;
  EXPECT_EQ(parse("Turn", "-5", value), "");
  EXPECT_EQ(value->restype(), OdResBuf::kRtAngle);
  EXPECT_NEAR(value->getDouble(), radians(355), 1e-12);
  EXPECT_EQ(parse("Turn", "375", value), "");
  EXPECT_NEAR(value->getDouble(), radians(15), 1e-12);
  EXPECT_EQ(parse("Turn", "180", value),
            "Turn takes an angle in degrees from 350 to 20 in steps of 5, not \"180\"");
}

TEST_F(CustomBlockPropertyText, FlipsAreReadAndTypedByName) {
  EXPECT_EQ(property("Side").text(side.get()), "not-flipped");
  OdResBufPtr value;
  EXPECT_EQ(parse("Side", "flipped", value), "");
  EXPECT_EQ(value->getInt32(), 1);
  ASSERT_TRUE(side->SetValue(0, value));
  EXPECT_EQ(property("Side").text(side.get()), "flipped");
  EXPECT_EQ(parse("Side", "yes", value), "Side takes flipped or not-flipped, not \"yes\"");
}
