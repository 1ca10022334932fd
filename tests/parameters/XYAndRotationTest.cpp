// XY and rotation parameters: derived corners kept in step, distances and angles snapped from
// grip drags, transforms, instance state and filing.
#include "ParameterTestSupport.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "parameters/CJbCustBlockRotationParameter.h"
#include "parameters/CJbCustBlockXYParameter.h"
#include "parameters/grips/CJbCustBlockRotationGrip.h"
#include "parameters/grips/CJbCustBlockXYGrip.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePlane.h"

class XYAndRotationTest : public ParameterTest {
 protected:
  void drag(CJbCustBlockParameter* parameter, unsigned point, const OdGeVector3d& by) {
    CJbCustBlockGripPtr grip =
        CJbCustBlockGrip::cast(graph->GetNode(parameter->GetGrip(point)).get());
    grip->SetUpdatedPosition(grip->GetCurrentPosition() + by);
    CJbDbCustBlockGraphEvaluationContext context(0, OdDbObjectId::kNull);
    parameter->Evaluate(&context);
  }
  OdSmartPtr<CJbCustBlockXYParameter> xy() {
    auto parameter = add<CJbCustBlockXYParameter>();
    parameter->SetDefinedPosition(0, OdGePoint3d(1, 1, 0));
    parameter->SetDefinedPosition(1, OdGePoint3d(5, 4, 0));
    bind(parameter.get(), 0, add<CJbCustBlockXYGrip>().get());
    bind(parameter.get(), 1, add<CJbCustBlockXYGrip>().get());
    return parameter;
  }
  OdSmartPtr<CJbCustBlockRotationParameter> rotation() {
    auto parameter = add<CJbCustBlockRotationParameter>();
    parameter->SetDefinedPosition(0, OdGePoint3d(0, 0, 0));
    parameter->SetDefinedPosition(1, OdGePoint3d(2, 0, 0));
    parameter->SetDefinedPosition(2, OdGePoint3d(0, 3, 0));
    bind(parameter.get(), 2, add<CJbCustBlockRotationGrip>().get());
    return parameter;
  }
};

TEST_F(XYAndRotationTest, XYCornersFollowTheBaseAndTheCornerInEveryPositionSet) {
  auto parameter = xy();
  EXPECT_TRUE(SamePoint(parameter->GetDefinedPosition(2), OdGePoint3d(5, 1, 0)));
  EXPECT_TRUE(SamePoint(parameter->GetCurrentPosition(3), OdGePoint3d(1, 4, 0)));
  EXPECT_DOUBLE_EQ(real(parameter->GetValue(0)), 4.0);
  EXPECT_DOUBLE_EQ(real(parameter->GetValue(1)), 3.0);
  EXPECT_EQ(parameter->GetValueInfo(0)->GetName(), "X Distance1");
  EXPECT_EQ(parameter->GetValueInfo(1)->GetName(), "Y Distance1");

  // Moving the X corner changes the width only.
  parameter->SetUpdatedPosition(2, OdGePoint3d(7, 9, 0));
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(1), OdGePoint3d(7, 4, 0)));
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(2), OdGePoint3d(7, 1, 0)));
  // A corner left of the base stays left; negative distances count as positive.
  parameter->SetUpdatedPosition(1, OdGePoint3d(-1, 4, 0));
  EXPECT_TRUE(parameter->SetValue(0, realValue(-6.0)));
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(1), OdGePoint3d(-5, 4, 0)));
  EXPECT_FALSE(parameter->SetValue(1, OdResBuf::newRb(OdResBuf::kRtAngle, 1.0)));
  EXPECT_FALSE(parameter->SetValue(2, realValue(1.0)));

  parameter->Reset(nullptr);
  parameter->Transform(OdGeMatrix3d::scaling(OdGeScale3d(2, 3, 1)), false);
  EXPECT_TRUE(SamePoint(parameter->GetCurrentPosition(2), OdGePoint3d(10, 3, 0)));
  EXPECT_DOUBLE_EQ(real(parameter->GetValue(1)), 9.0);
}

TEST_F(XYAndRotationTest, XYDragsSnapEachDistanceAndABaseDraggedAloneKeepsTheCorner) {
  auto parameter = xy();
  parameter->GetValueInfoForModify(0)->SetIncrement(2.0, parameter.get());
  parameter->GetValueInfoForModify(1)->SetList({1.0, 9.0}, parameter.get());
  drag(parameter.get(), 1, OdGeVector3d(2.7, 4.5, 0));  // 6.7 by 7.5
  EXPECT_DOUBLE_EQ(real(parameter->GetValue(0)), 6.0);
  EXPECT_DOUBLE_EQ(real(parameter->GetValue(1)), 9.0);
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(1), OdGePoint3d(7, 10, 0)));

  parameter->Reset(nullptr);
  drag(parameter.get(), 0, OdGeVector3d(-1.2, 0, 0));  // 5.2 by 3
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(1), OdGePoint3d(5, 4, 0)));
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(0), OdGePoint3d(-1, 1, 0)));
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(3), OdGePoint3d(-1, 4, 0)));

  OdSmartPtr<CJbCustBlockXYParameter> copy(new CJbCustBlockXYParameter);
  ASSERT_EQ(ElementFilingRoundTrip::Copy(parameter.get(), copy.get()), eOk);
  double step = 0.0;
  EXPECT_TRUE(copy->GetValueInfo(0)->GetIncrement(step));
  EXPECT_TRUE(SamePoint(copy->GetUpdatedPosition(2), OdGePoint3d(5, 1, 0)));
}

TEST_F(XYAndRotationTest, RotationDragTurnsAtTheRadiusAndSnapsTheAngle) {
  auto parameter = rotation();
  EXPECT_EQ(parameter->GetValue(0)->restype(), OdResBuf::kRtAngle);
  EXPECT_NEAR(real(parameter->GetValue(0)), OdGeAngle::kHalfPi, 1e-12);
  parameter->GetValueInfoForModify(0)->SetIncrement(OdGeAngle::kPi / 12, parameter.get());
  drag(parameter.get(), 2, OdGeVector3d(-3.2, -2.0, 0));  // towards (-3.2, 1), about 162.6 deg
  EXPECT_NEAR(real(parameter->GetValue(0)), OdGeAngle::kPi * 11 / 12, 1e-9);
  EXPECT_NEAR((parameter->GetUpdatedPosition(2) - OdGePoint3d::kOrigin).length(), 3.0, 1e-9);

  EXPECT_TRUE(parameter->SetValue(0, realValue(OdGeAngle::kPi)));
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(2), OdGePoint3d(-3, 0, 0)));
  EXPECT_FALSE(parameter->SetValue(0, realValue(std::nan(""))));
  EXPECT_FALSE(parameter->SetValue(0, OdResBuf::newRb(OdResBuf::kRtInt32, 1)));

  // A mirror keeps the angle by turning the normal over.
  parameter->Reset(nullptr);
  parameter->Transform(
      OdGeMatrix3d::mirroring(OdGePlane(OdGePoint3d::kOrigin, OdGeVector3d::kYAxis)), false);
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(2), OdGePoint3d(0, -3, 0)));
  EXPECT_NEAR(real(parameter->GetValue(0)), OdGeAngle::kHalfPi, 1e-12);
  EXPECT_TRUE(parameter->GetCurrentNormal().isEqualTo(-OdGeVector3d::kZAxis));
}

TEST_F(XYAndRotationTest, RotationInstanceStateCarriesTheNormal) {
  auto parameter = rotation();
  parameter->Transform(
      OdGeMatrix3d::mirroring(OdGePlane(OdGePoint3d::kOrigin, OdGeVector3d::kYAxis)), false);
  OdResBufPtr chain = parameter->SaveInstance(nullptr);
  std::vector<int> types;
  for (OdResBufPtr item = chain; !item.isNull(); item = item->next())
    types.push_back(item->restype());
  EXPECT_EQ(types, (std::vector<int>{290, 5009, 5009, 5009, 5009}));
  auto other = rotation();
  OdResBufPtr cursor = chain;
  ASSERT_TRUE(other->LoadInstance(cursor, nullptr));
  EXPECT_TRUE(other->GetUpdatedNormal().isEqualTo(-OdGeVector3d::kZAxis));
  EXPECT_NEAR(real(other->GetValue(0)), OdGeAngle::kHalfPi, 1e-12);
  chain->last()->setRestype(OdResBuf::kRtDouble);
  cursor = chain;
  EXPECT_FALSE(other->LoadInstance(cursor, nullptr));
}
