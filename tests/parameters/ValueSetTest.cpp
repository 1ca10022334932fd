// Value sets: snapping to lists, steps and bounds with their tie-breaks, cyclic angles, the
// definition value kept allowed, bad input, property names and filing.
#include <cmath>
#include <limits>

#include "ParameterTestSupport.h"
#include "core/CJbCustBlockElementFiler.h"
#include "platform/ge/OdGeAngle.h"

namespace {
using ValueInfo = CJbCustBlockParameterValueInfo;
}

class ValueSetTest : public ParameterTest {
 protected:
  // A distance value set whose definition value is `length`.
  CJbCustBlockParameterValueInfo* distanceSet(double length) {
    parameter = add<TestLengthParameter>();
    place(parameter.get(), OdGePoint3d(0, 0, 0), OdGePoint3d(length, 0, 0));
    return parameter->GetValueInfoForModify(0);
  }
  double snap(const ValueInfo* set, double value) {
    return set->GetClosestValue(value, parameter.get());
  }

  OdSmartPtr<TestLengthParameter> parameter;
};

TEST_F(ValueSetTest, ListSnapsToTheNearestEntryAndTheEarlierOneOnATie) {
  ValueInfo* set = distanceSet(3.0);
  set->SetList({1.0, 3.0}, parameter.get());
  EXPECT_DOUBLE_EQ(snap(set, 2.0), 1.0);
  EXPECT_DOUBLE_EQ(snap(set, 2.0 + 1e-9), 3.0);
  EXPECT_DOUBLE_EQ(snap(set, -50.0), 1.0);
  // The definition value joins the list; entries are sorted.
  set->SetList({7.0, 1.0}, parameter.get());
  OdArray<double> list;
  ASSERT_TRUE(set->GetList(list));
  EXPECT_EQ(list, (OdArray<double>{1.0, 3.0, 7.0}));
  double unused = 0.0;
  EXPECT_FALSE(set->GetMimimum(unused));
  EXPECT_FALSE(set->GetIncrement(unused));

  ValueInfo free(ValueInfo::kDistance);
  free.SetList({}, nullptr);
  EXPECT_DOUBLE_EQ(free.GetClosestValue(4.5, nullptr), 4.5);
}

TEST_F(ValueSetTest, AngleListsMeasureAroundTheCircle) {
  ValueInfo angles(ValueInfo::kAngle);
  angles.SetList({0.1, 6.2}, nullptr);
  EXPECT_DOUBLE_EQ(angles.GetClosestValue(6.27, nullptr), 6.2);
  EXPECT_DOUBLE_EQ(angles.GetClosestValue(0.05, nullptr), 0.1);
  EXPECT_DOUBLE_EQ(angles.GetClosestValue(-0.1, nullptr), 6.2);
  // Entries are stored normalised.
  angles.SetList({-OdGeAngle::kHalfPi}, nullptr);
  OdArray<double> list;
  angles.GetList(list);
  EXPECT_NEAR(list[0], 1.5 * OdGeAngle::kPi, 1e-12);
}

TEST_F(ValueSetTest, IncrementGridIsAnchoredAtTheDefinitionValueAndClampedByTheBounds) {
  ValueInfo* set = distanceSet(5.0);
  set->SetIncrement(10.0, parameter.get());
  set->SetMinimum(0.0, parameter.get());
  EXPECT_DOUBLE_EQ(snap(set, 23.0), 25.0);
  EXPECT_DOUBLE_EQ(snap(set, 19.0), 15.0);
  EXPECT_DOUBLE_EQ(snap(set, -30.0), 0.0);
  EXPECT_DOUBLE_EQ(snap(set, 5.0), 5.0);

  const double maximum = 40.0;
  set->SetMaximum(&maximum, parameter.get());
  EXPECT_DOUBLE_EQ(snap(set, 47.0), 40.0);
  EXPECT_DOUBLE_EQ(snap(set, 39.0), 40.0);
  EXPECT_DOUBLE_EQ(snap(set, 36.0), 35.0);
  set->SetMaximum(nullptr, parameter.get());
  EXPECT_DOUBLE_EQ(snap(set, 47.0), 45.0);
}

TEST_F(ValueSetTest, BoundsNeverExcludeTheDefinitionValue) {
  ValueInfo* set = distanceSet(5.0);
  set->SetIncrement(1.0, parameter.get());
  set->SetMinimum(8.0, parameter.get());
  double minimum = 0.0;
  ASSERT_TRUE(set->GetMimimum(minimum));
  EXPECT_DOUBLE_EQ(minimum, 5.0);
  set->SetMinimum(2.0, parameter.get());
  const double low = 3.0;
  set->SetMaximum(&low, parameter.get());
  double maximum = 0.0;
  ASSERT_TRUE(set->GetMaximum(maximum));
  EXPECT_DOUBLE_EQ(maximum, 5.0);
  // A zero step leaves values as they are, after the bounds.
  set->SetIncrement(0.0, parameter.get());
  EXPECT_DOUBLE_EQ(snap(set, 3.7), 3.7);
  EXPECT_DOUBLE_EQ(snap(set, 1.0), 2.0);
}

TEST_F(ValueSetTest, OutsideAnAngleRangeTheNearerBoundWinsAndTheMinimumOnATie) {
  ValueInfo angles(ValueInfo::kAngle);
  angles.SetIncrement(0.0, nullptr);
  angles.SetMinimum(1.0, nullptr);
  const double maximum = 2.0;
  angles.SetMaximum(&maximum, nullptr);
  EXPECT_DOUBLE_EQ(angles.GetClosestValue(1.5 + OdGeAngle::kPi, nullptr), 1.0);
  EXPECT_DOUBLE_EQ(angles.GetClosestValue(2.5, nullptr), 2.0);
  EXPECT_DOUBLE_EQ(angles.GetClosestValue(1.7, nullptr), 1.7);
  // A range may wrap through zero.
  angles.SetMinimum(6.0, nullptr);
  const double wrapped = 0.5;
  angles.SetMaximum(&wrapped, nullptr);
  EXPECT_DOUBLE_EQ(angles.GetClosestValue(0.2, nullptr), 0.2);
  EXPECT_DOUBLE_EQ(angles.GetClosestValue(5.0, nullptr), 6.0);
  // Steps above a full turn become a full turn; negative steps count forwards.
  angles.SetIncrement(-10.0, nullptr);
  double step = 0.0;
  angles.GetIncrement(step);
  EXPECT_DOUBLE_EQ(step, OdGeAngle::k2Pi);
}

TEST_F(ValueSetTest, BadInputIsIgnoredOrReportedNeverMisused) {
  ValueInfo* set = distanceSet(5.0);
  set->SetIncrement(2.0, parameter.get());
  set->SetIncrement(std::nan(""), parameter.get());
  set->SetMinimum(std::numeric_limits<double>::infinity(), parameter.get());
  const double nan = std::nan("");
  set->SetMaximum(&nan, parameter.get());
  double value = 0.0;
  ASSERT_TRUE(set->GetIncrement(value));
  EXPECT_DOUBLE_EQ(value, 2.0);
  EXPECT_FALSE(set->GetMaximum(value));
  EXPECT_TRUE(std::isnan(snap(set, std::nan(""))));
  EXPECT_TRUE(std::isinf(snap(set, std::numeric_limits<double>::infinity())));
  set->SetIncrement(-4.0, parameter.get());
  EXPECT_DOUBLE_EQ(snap(set, 10.0), 9.0);
  set->SetIncrement(1e-9, parameter.get());
  EXPECT_THROW(snap(set, 1e300), OdError);
  set->SetList({1.0, std::nan(""), 9.0}, parameter.get());
  OdArray<double> list;
  set->GetList(list);
  EXPECT_EQ(list, (OdArray<double>{1.0, 5.0, 9.0}));

  // Kinds without a value set ignore constraints.
  ValueInfo position(ValueInfo::kPosition);
  position.SetIncrement(3.0, nullptr);
  EXPECT_EQ(position.GetLimitType(), ValueInfo::kNone);
  EXPECT_DOUBLE_EQ(position.GetClosestValue(4.0, nullptr), 4.0);
}

TEST_F(ValueSetTest, SwitchingAListToNoneAndBackKeepsTheAuthorsEntries) {
  ValueInfo* set = distanceSet(5.0);
  set->SetList({2.0, 8.0}, parameter.get());
  set->SetNone(parameter.get());
  EXPECT_EQ(set->GetLimitType(), ValueInfo::kNone);
  EXPECT_DOUBLE_EQ(snap(set, 6.3), 6.3);
  CJbCustBlockElementFiler out;
  set->dwgOutFields(&out);
  ValueInfo copy(ValueInfo::kDistance);
  OdDbObjectIdArray ids[4];
  CJbCustBlockElementFiler in(out.GetData(), ids);
  ASSERT_EQ(copy.dwgInFields(&in), eOk);
  copy.SetList({2.0, 8.0}, nullptr);
  OdArray<double> list;
  copy.GetList(list);
  EXPECT_EQ(list, (OdArray<double>{2.0, 8.0}));
  set->SetList({2.0, 8.0}, parameter.get());
  set->GetList(list);
  EXPECT_EQ(list, (OdArray<double>{2.0, 5.0, 8.0}));
}

TEST_F(ValueSetTest, ReadingRefusesAnUnknownLimitTypeAndANegativeCount) {
  for (int limitType : {0, 3}) {
    CJbCustBlockElementFiler out;
    out.wrInt32(limitType);
    out.wrString("Distance1");
    out.wrString("");
    out.wrPoint3d(OdGePoint3d(1, 2, 3));
    out.wrDouble(0.0);
    out.wrDouble(0.0);
    out.wrDouble(0.0);
    out.wrBool(false);
    out.wrInt32(-1);
    OdDbObjectIdArray ids[4];
    CJbCustBlockElementFiler in(out.GetData(), ids);
    ValueInfo set(ValueInfo::kDistance);
    EXPECT_EQ(set.dwgInFields(&in), eDwgObjectImproperlyRead) << limitType;
  }
  OdDbObjectIdArray ids[4];
  CJbCustBlockElementFiler empty(OdBinaryData(), ids);
  ValueInfo set(ValueInfo::kDistance);
  EXPECT_NE(set.dwgInFields(&empty), eOk);
}

TEST_F(ValueSetTest, GeneratedNamesAreUniqueAcrossTheGraphAndChildrenFollowTheirParent) {
  auto first = add<TestLengthParameter>();
  auto second = add<TestLengthParameter>();
  EXPECT_EQ(first->GetValueInfo(0)->GetName(), "Distance1");
  EXPECT_EQ(second->GetValueInfo(0)->GetName(), "Distance2");
  EXPECT_FALSE(ValueInfo::ValidateName("Distance1", graph.get(), second->GetValueInfo(0)));
  EXPECT_TRUE(ValueInfo::ValidateName("Distance1", graph.get(), first->GetValueInfo(0)));
  EXPECT_FALSE(ValueInfo::ValidateName("", graph.get(), nullptr));

  ValueInfo position(ValueInfo::kPosition);
  ValueInfo x(ValueInfo::kXPosition, &position);
  ValueInfo y(ValueInfo::kYPosition, &position);
  position.SetName("Corner", nullptr);
  EXPECT_EQ(x.GetName(), "Corner X");
  EXPECT_EQ(y.GetName(), "Corner Y");
  EXPECT_TRUE(position.IsParent());
  EXPECT_TRUE(x.IsChild());
  EXPECT_EQ(position.GetChildren().length(), 2u);
  EXPECT_EQ(x.GetValueTypeName(), "Undefined");
}
