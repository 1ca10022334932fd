// The parameter base: value equality, the three position sets through evaluation, reset and
// transformation, grips following their points, definition values, instance state and filing.
#include <stdexcept>

#include "ParameterTestSupport.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "platform/db/filers/OdDbResBufDxfFiler.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePlane.h"

using ParameterEqualityTest = ParameterTest;

TEST_F(ParameterEqualityTest, RealsAnglesPointsIntegersAndStrings) {
  auto eq = [](const OdResBufPtr& a, const OdResBufPtr& b) {
    return CJbCustBlockParameter::IsEqualValue(a.get(), b.get());
  };
  EXPECT_TRUE(eq(realValue(0.0), realValue(1e-10)));
  EXPECT_FALSE(eq(realValue(0.0), realValue(2e-10)));
  // An angle compares as a real.
  EXPECT_TRUE(eq(OdResBuf::newRb(OdResBuf::kRtAngle, 1.5), realValue(1.5)));
  EXPECT_FALSE(eq(realValue(std::nan("")), realValue(std::nan(""))));
  EXPECT_TRUE(eq(OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d(1, 2, 3)),
                 OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d(1, 2, 3 + 5e-11))));
  EXPECT_FALSE(eq(OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d(1, 2, 3)),
                  OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d(1, 2, 3.001))));
  EXPECT_TRUE(eq(OdResBuf::newRb(OdResBuf::kRtInt32, 4), OdResBuf::newRb(OdResBuf::kRtInt32, 4)));
  EXPECT_FALSE(eq(OdResBuf::newRb(OdResBuf::kRtInt32, 4), realValue(4.0)));
  // The base rule reports strings equal exactly when they differ.
  EXPECT_FALSE(eq(OdResBuf::newRb(OdResBuf::kRtString, "Open"),
                  OdResBuf::newRb(OdResBuf::kRtString, "OPEN")));
  EXPECT_TRUE(eq(OdResBuf::newRb(OdResBuf::kRtString, "Open"),
                 OdResBuf::newRb(OdResBuf::kRtString, "Closed")));
  EXPECT_FALSE(eq(OdResBufPtr(), OdResBufPtr()));
  EXPECT_FALSE(eq(realValue(1.0), OdResBufPtr()));
}

using ParameterPositionTest = ParameterTest;

TEST_F(ParameterPositionTest, OutOfRangeIndicesAreToleratedAndSettersCascade) {
  auto parameter = add<TestLengthParameter>();
  place(parameter.get(), OdGePoint3d(1, 1, 0), OdGePoint3d(4, 1, 0));
  EXPECT_EQ(parameter->GetPointCount(), 2u);
  EXPECT_TRUE(SamePoint(parameter->GetCurrentPosition(1), OdGePoint3d(4, 1, 0)));
  EXPECT_TRUE(SamePoint(parameter->GetDefinedPosition(7), OdGePoint3d::kOrigin));
  EXPECT_EQ(parameter->GetGrip(7), 0);
  parameter->SetUpdatedPosition(7, OdGePoint3d(9, 9, 9));
  parameter->SetGrip(7, 3);
  EXPECT_FALSE(parameter->NeedEvaluate());

  parameter->SetUpdatedPosition(1, OdGePoint3d(6, 1, 0));
  EXPECT_TRUE(parameter->NeedEvaluate());
  EXPECT_DOUBLE_EQ(real(parameter->GetValue(0)), 5.0);
  // The definition value is taken from the defined positions and leaves the updated ones alone.
  EXPECT_DOUBLE_EQ(real(parameter->GetDefinitionValue(0)), 3.0);
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(1), OdGePoint3d(6, 1, 0)));
  parameter->failValue = true;
  EXPECT_THROW(parameter->GetDefinitionValue(0), std::runtime_error);
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(1), OdGePoint3d(6, 1, 0)));
  parameter->failValue = false;

  parameter->SetCurrentPosition(1, OdGePoint3d(2, 2, 0));
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(1), OdGePoint3d(2, 2, 0)));
  EXPECT_FALSE(parameter->NeedEvaluate());
}

TEST_F(ParameterPositionTest, EvaluationCommitsUpdatedPositionsAndResetReturnsToTheDefinition) {
  auto parameter = add<TestLengthParameter>();
  auto grip = add<TestPointGrip>();
  place(parameter.get(), OdGePoint3d(0, 0, 0), OdGePoint3d(10, 0, 0));
  bind(parameter.get(), 1, grip.get());
  parameter->SetUpdatedPosition(1, OdGePoint3d(12, 0, 0));
  CJbDbCustBlockGraphEvaluationContext context(0, OdDbObjectId::kNull);
  EXPECT_TRUE(parameter->EndEvaluate(&context));
  EXPECT_TRUE(SamePoint(parameter->GetCurrentPosition(1), OdGePoint3d(12, 0, 0)));
  EXPECT_TRUE(SamePoint(grip->GetCurrentPosition(), OdGePoint3d(12, 0, 0)));
  EXPECT_FALSE(parameter->NeedEvaluate());

  EXPECT_TRUE(parameter->Reset(&context));
  EXPECT_TRUE(SamePoint(parameter->GetCurrentPosition(1), OdGePoint3d(10, 0, 0)));
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(1), OdGePoint3d(10, 0, 0)));
  EXPECT_TRUE(SamePoint(grip->GetCurrentPosition(), OdGePoint3d(10, 0, 0)));
}

TEST_F(ParameterPositionTest, DefinedPointMovesKeepAnOffsetGripWhereItIsDrawn) {
  auto parameter = add<TestLengthParameter>();
  auto offsetGrip = add<TestPointGrip>();
  auto plainGrip = add<TestPointGrip>();
  place(parameter.get(), OdGePoint3d(0, 0, 0), OdGePoint3d(10, 0, 0));
  bind(parameter.get(), 0, plainGrip.get());
  bind(parameter.get(), 1, offsetGrip.get());
  offsetGrip->SetDefinitionOffset(OdGeVector3d(0, 2, 0));

  parameter->SetDefinedPosition(1, OdGePoint3d(13, 0, 0));
  EXPECT_TRUE(SamePoint(offsetGrip->GetDefindedPosition(), OdGePoint3d(13, 0, 0)));
  EXPECT_TRUE(SamePoint(offsetGrip->GetDefindedPosition() + offsetGrip->GetDefinitionOffset(),
                        OdGePoint3d(10, 2, 0)));
  parameter->SetDefinedPosition(0, OdGePoint3d(-1, 0, 0));
  EXPECT_TRUE(SamePoint(plainGrip->GetDisplayPosition(), OdGePoint3d(-1, 0, 0)));
  EXPECT_TRUE(plainGrip->GetDefinitionOffset().isZeroLength());
}

TEST_F(ParameterPositionTest, SettingTheDefinitionValueItAlreadyHasNeedsNoWriteAccess) {
  OdDbDatabasePtr database = OdDbDatabase::createObject();
  auto parameter = add<TestLengthParameter>();
  place(parameter.get(), OdGePoint3d(0, 0, 0), OdGePoint3d(4, 0, 0));
  const OdDbObjectId graphId = database->addOdDbObject(graph.get());
  graph.release();
  {
    CJbDbCustBlockGraphPtr reading = CJbDbCustBlockGraph::cast(graphId.openObject().get());
    EXPECT_TRUE(parameter->SetDefinitionValue(0, realValue(4.0 + 5e-11)));
    EXPECT_THROW(parameter->SetDefinitionValue(0, realValue(6.0)), OdError);
  }
  CJbDbCustBlockGraphPtr writing =
      CJbDbCustBlockGraph::cast(graphId.openObject(OdDb::kForWrite).get());
  EXPECT_TRUE(parameter->SetDefinitionValue(0, realValue(6.0)));
  EXPECT_TRUE(SamePoint(parameter->GetDefinedPosition(1), OdGePoint3d(6, 0, 0)));
  EXPECT_TRUE(SamePoint(parameter->GetCurrentPosition(1), OdGePoint3d(6, 0, 0)));
  EXPECT_FALSE(parameter->SetDefinitionValue(0, OdResBuf::newRb(OdResBuf::kRtInt32, 6)));
}

// Each case: a transform of a parameter spanning (1,1)-(3,2), and where the end goes.
struct TransformCase {
  const char* name;
  OdGeMatrix3d matrix;
  OdGePoint3d end;
};

class ParameterTransformTest : public ParameterTest,
                               public ::testing::WithParamInterface<TransformCase> {};

TEST_P(ParameterTransformTest, MovesUpdatedAndCurrentPointsUnlessKeptOrChained) {
  const TransformCase& c = GetParam();
  auto parameter = add<TestLengthParameter>();
  auto grip = add<TestPointGrip>();
  place(parameter.get(), OdGePoint3d(1, 1, 0), OdGePoint3d(3, 2, 0));
  bind(parameter.get(), 1, grip.get());

  EXPECT_TRUE(parameter->Transform(c.matrix, false));
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(1), c.end));
  EXPECT_TRUE(SamePoint(parameter->GetCurrentPosition(1), c.end));
  EXPECT_TRUE(SamePoint(parameter->GetDefinedPosition(1), OdGePoint3d(3, 2, 0)));
  EXPECT_TRUE(SamePoint(grip->GetCurrentPosition(), c.end));

  parameter->Reset(nullptr);
  parameter->SetChain(true);
  EXPECT_TRUE(parameter->Transform(c.matrix, true));
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(1), OdGePoint3d(3, 2, 0)));
  EXPECT_TRUE(SamePoint(parameter->GetCurrentPosition(1), OdGePoint3d(3, 2, 0)));
  parameter->Transform(c.matrix, false);
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(1), c.end));
  EXPECT_TRUE(SamePoint(parameter->GetCurrentPosition(1), OdGePoint3d(3, 2, 0)));
  EXPECT_TRUE(parameter->NeedEvaluate());
}

INSTANTIATE_TEST_SUITE_P(
    Transforms, ParameterTransformTest,
    ::testing::Values(
        TransformCase{
            "MirrorInTheYAxis",
            OdGeMatrix3d::mirroring(OdGePlane(OdGePoint3d::kOrigin, OdGeVector3d::kXAxis)),
            OdGePoint3d(-3, 2, 0)},
        TransformCase{"NonUniformScale",
                      OdGeMatrix3d::scaling(OdGeScale3d(2, 3, 1), OdGePoint3d(1, 1, 0)),
                      OdGePoint3d(5, 4, 0)},
        TransformCase{"QuarterTurn",
                      OdGeMatrix3d::rotation(OdGeAngle::kHalfPi, OdGeVector3d::kZAxis),
                      OdGePoint3d(-2, 3, 0)}),
    [](const ::testing::TestParamInfo<TransformCase>& info) { return info.param.name; });

TEST_F(ParameterPositionTest, IdentityTransformTouchesNoGripAndStretchingFollowsTheChainFlag) {
  auto parameter = add<TestLengthParameter>();
  auto grip = add<TestPointGrip>();
  place(parameter.get(), OdGePoint3d(0, 0, 0), OdGePoint3d(10, 0, 0));
  bind(parameter.get(), 1, grip.get());
  grip->SetUpdatedPosition(OdGePoint3d(11, 0, 0));
  EXPECT_TRUE(parameter->Transform(OdGeMatrix3d::kIdentity, false));
  EXPECT_TRUE(SamePoint(grip->GetUpdatedPosition(), OdGePoint3d(11, 0, 0)));
  EXPECT_TRUE(SamePoint(grip->GetCurrentPosition(), OdGePoint3d(10, 0, 0)));

  // Unchained: the point moves as a whole, which is no change of value.
  EXPECT_TRUE(parameter->StretchPoints({1, 5, -1}, OdGeVector3d(0, 2, 0), false));
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(1), OdGePoint3d(10, 2, 0)));
  EXPECT_FALSE(parameter->NeedEvaluate());
  parameter->SetChain(true);
  parameter->StretchPoints({0}, OdGeVector3d(1, 0, 0), false);
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(0), OdGePoint3d(1, 0, 0)));
  EXPECT_TRUE(SamePoint(parameter->GetCurrentPosition(0), OdGePoint3d(0, 0, 0)));
  EXPECT_TRUE(parameter->NeedEvaluate());
}

using ParameterGripVisibilityTest = ParameterTest;

TEST_F(ParameterGripVisibilityTest, AGripIsShownOnlyWhereAnActionFollowsItsPoint) {
  auto parameter = add<TestLengthParameter>();
  auto start = add<TestPointGrip>();
  auto end = add<TestPointGrip>();
  place(parameter.get(), OdGePoint3d(0, 0, 0), OdGePoint3d(10, 0, 0));
  bind(parameter.get(), 0, start.get());
  EXPECT_FALSE(parameter->IsValid());
  EXPECT_FALSE(parameter->IsPropertyEnabled());
  EXPECT_FALSE(start->IsVisible());
  EXPECT_FALSE(end->IsVisible());

  auto action = addAction(parameter.get(), 1);
  EXPECT_EQ(parameter->GetConnectedActions(), OdArray<int>{action->GetElementId()});
  EXPECT_TRUE(parameter->IsValid());
  EXPECT_FALSE(parameter->IsGripVisible(0, true));
  EXPECT_FALSE(parameter->IsValidParameter());
  bind(parameter.get(), 1, end.get());
  EXPECT_TRUE(end->IsVisible());
  unsigned index = 9;
  EXPECT_EQ(end->GetParameter(&index), parameter->GetElementId());
  EXPECT_EQ(index, 1u);

  action->hasPointIndex = false;
  EXPECT_TRUE(start->IsVisible());
  EXPECT_TRUE(parameter->IsValidParameter());
  parameter->SetVisible(false);
  EXPECT_FALSE(start->IsVisible());
  EXPECT_TRUE(parameter->IsGripVisible(0, false));

  // A grip leaving the graph unbinds its point.
  graph->RemoveNode(start->GetElementId());
  EXPECT_EQ(parameter->GetGrip(0), 0);
}

using ParameterInstanceTest = ParameterTest;

TEST_F(ParameterInstanceTest, SavesCurrentPointsAfterTheBaseItemAndLoadsThemAsUpdated) {
  auto parameter = add<TestLengthParameter>();
  place(parameter.get(), OdGePoint3d(0, 0, 0), OdGePoint3d(10, 0, 0));
  parameter->SetCurrentPosition(1, OdGePoint3d(7, 1, 0));
  OdResBufPtr chain = parameter->SaveInstance(nullptr);
  ASSERT_FALSE(chain.isNull());
  EXPECT_EQ(chain->restype(), OdResBuf::kDxfBool);
  OdResBufPtr first = chain->next(), second = first->next();
  EXPECT_TRUE(SamePoint(first->getPoint3d(), OdGePoint3d(0, 0, 0)));
  EXPECT_TRUE(SamePoint(second->getPoint3d(), OdGePoint3d(7, 1, 0)));
  EXPECT_TRUE(second->next().isNull());

  auto other = add<TestLengthParameter>();
  place(other.get(), OdGePoint3d(0, 0, 0), OdGePoint3d(10, 0, 0));
  second->setNext(OdResBuf::newRb(OdResBuf::kRtInt32, 99));
  OdResBufPtr cursor = chain;
  EXPECT_TRUE(other->LoadInstance(cursor, nullptr));
  EXPECT_EQ(cursor->getInt32(), 99);
  EXPECT_TRUE(SamePoint(other->GetUpdatedPosition(1), OdGePoint3d(7, 1, 0)));
  EXPECT_TRUE(SamePoint(other->GetCurrentPosition(1), OdGePoint3d(10, 0, 0)));

  // A wrongly typed point item fails after loading the points before it.
  first->setNext(OdResBuf::newRb(OdResBuf::kRtDouble, 1.0));
  first->setPoint3d(OdGePoint3d(5, 5, 0));
  cursor = chain;
  EXPECT_FALSE(other->LoadInstance(cursor, nullptr));
  EXPECT_TRUE(SamePoint(other->GetUpdatedPosition(0), OdGePoint3d(5, 5, 0)));
  EXPECT_EQ(cursor->restype(), OdResBuf::kRtDouble);
  // Without the base item nothing is consumed.
  cursor = first;
  EXPECT_FALSE(other->LoadInstance(cursor, nullptr));
  EXPECT_EQ(cursor, first);
}

using ParameterFilingTest = ParameterTest;

TEST_F(ParameterFilingTest, DwgFieldsRoundTripPointsValueSetsFlagsAndIcon) {
  auto parameter = add<TestLengthParameter>();
  place(parameter.get(), OdGePoint3d(1, 2, 0), OdGePoint3d(5, 2, 0));
  parameter->SetGrip(1, 42);
  parameter->SetChain(true);
  parameter->SetPropertyVisible(false);
  parameter->SetActivityIconPosition(OdGePoint3d(3, 3, 0));
  CJbCustBlockParameterValueInfo* distance = parameter->GetValueInfoForModify(0);
  distance->SetIncrement(0.5, parameter.get());
  distance->SetDescription("step");
  parameter->SetUpdatedPosition(1, OdGePoint3d(8, 2, 0));

  OdSmartPtr<TestLengthParameter> copy(new TestLengthParameter);
  ASSERT_EQ(ElementFilingRoundTrip::Copy(parameter.get(), copy.get(), graph.get()), eOk);
  EXPECT_EQ(copy->GetName(), parameter->GetName());
  EXPECT_EQ(copy->GetGrip(1), 42);
  EXPECT_TRUE(SamePoint(copy->GetDefinedPosition(0), OdGePoint3d(1, 2, 0)));
  // What is read is defined, current and updated alike.
  EXPECT_TRUE(SamePoint(copy->GetUpdatedPosition(1), OdGePoint3d(5, 2, 0)));
  EXPECT_TRUE(copy->IsChain());
  EXPECT_FALSE(copy->IsPropertyVisible());
  EXPECT_TRUE(SamePoint(copy->GetActivityIconPosition(), OdGePoint3d(3, 3, 0)));
  double step = 0.0;
  ASSERT_TRUE(copy->GetValueInfo(0)->GetIncrement(step));
  EXPECT_DOUBLE_EQ(step, 0.5);
  EXPECT_EQ(copy->GetValueInfo(0)->GetDescription(), "step");
  EXPECT_EQ(copy->GetValueInfo(0)->GetName(), "Distance1");
}

TEST_F(ParameterFilingTest, DxfCarriesTheBaseFieldsOnlyAndToleratesABadSequence) {
  auto parameter = add<TestLengthParameter>();
  place(parameter.get(), OdGePoint3d(1, 2, 0), OdGePoint3d(5, 2, 0));
  OdDbResBufDxfFilerPtr out = OdDbResBufDxfFiler::createObject(nullptr);
  parameter->dxfOutFields(out.get(), graph.get());
  int items = 0;
  for (OdResBufPtr item = out->items(); !item.isNull(); item = item->next())
    ++items;
  // Id, visible flag, name and the two empty connection counts.
  EXPECT_EQ(items, 5);
  OdSmartPtr<TestLengthParameter> copy(new TestLengthParameter);
  out->rewind();
  EXPECT_EQ(copy->dxfInFields(out.get(), nullptr), eOk);
  EXPECT_EQ(copy->GetName(), parameter->GetName());
  OdDbResBufDxfFilerPtr bad =
      OdDbResBufDxfFiler::createObject(nullptr, OdResBuf::newRb(OdResBuf::kRtString, "x"));
  EXPECT_EQ(copy->dxfInFields(bad.get(), nullptr), eOk);
}
