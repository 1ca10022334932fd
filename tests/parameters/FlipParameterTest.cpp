// Flip parameter: a grip click toggles the state once per evaluation and turns the grip to the
// other side; values, degenerate reflection lines and instance state.
#include "ParameterTestSupport.h"
#include "parameters/CJbCustBlockFlipParameter.h"
#include "parameters/grips/CJbCustBlockFlipGrip.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeMatrix3d.h"

class FlipParameterTest : public ParameterTest {
 protected:
  void SetUp() override {
    parameter = add<CJbCustBlockFlipParameter>();
    place(parameter.get(), OdGePoint3d(2, 0, 0), OdGePoint3d(2, 10, 0));
    grip = add<CJbCustBlockFlipGrip>();
    bind(parameter.get(), 0, grip.get());
    grip->SetDefinitionOffset(OdGeVector3d(-1, 0.5, 0));
    addAction(parameter.get(), 0);
    graph->Reset(OdDbObjectId::kNull, false);
  }

  void click() { grip->SetFlipped(true); }
  void evaluate() { graph->Evaluate(OdDbObjectId::kNull, false); }
  bool gripFaces(const OdGeVector3d& direction, const OdGeVector3d& offset) const {
    return grip->GetCurrentDirection().isEqualTo(direction) &&
           grip->GetCurrentOffset().isEqualTo(offset);
  }

  OdSmartPtr<CJbCustBlockFlipParameter> parameter;
  OdSmartPtr<CJbCustBlockFlipGrip> grip;
};

TEST_F(FlipParameterTest, AClickTogglesOncePerEvaluationAndTurnsTheGrip) {
  EXPECT_FALSE(parameter->IsCurrentFlipped());

  // Two clicks before the evaluation still make one toggle.
  click();
  click();
  EXPECT_TRUE(grip->NeedEvaluate());
  evaluate();
  EXPECT_TRUE(parameter->IsCurrentFlipped());
  EXPECT_FALSE(grip->IsFlipped());
  EXPECT_EQ(parameter->GetValue(0)->getInt32(), 1);
  EXPECT_TRUE(gripFaces(OdGeVector3d(1, 0, 0), OdGeVector3d(1, 0.5, 0)));

  // No click, no change.
  evaluate();
  EXPECT_TRUE(parameter->IsCurrentFlipped());
  // A quarter turn of the block turns the arrow and the offset with it.
  parameter->Transform(
      OdGeMatrix3d::rotation(OdGeAngle::kHalfPi, OdGeVector3d::kZAxis, OdGePoint3d(2, 0, 0)),
      false);
  EXPECT_TRUE(gripFaces(OdGeVector3d(0, 1, 0), OdGeVector3d(-0.5, 1, 0)));
  click();
  evaluate();
  EXPECT_FALSE(parameter->IsCurrentFlipped());
  EXPECT_TRUE(gripFaces(OdGeVector3d(0, -1, 0), OdGeVector3d(-0.5, -1, 0)));
}

TEST_F(FlipParameterTest, IntegerValuesAndDegenerateLines) {
  EXPECT_TRUE(parameter->SetValue(0, OdResBuf::newRb(OdResBuf::kRtInt32, 7)));
  EXPECT_TRUE(parameter->IsUpdatedFlipped());
  EXPECT_FALSE(parameter->IsCurrentFlipped());
  EXPECT_TRUE(parameter->NeedEvaluate());
  EXPECT_FALSE(parameter->SetValue(0, realValue(1.0)));
  EXPECT_FALSE(parameter->SetValue(1, OdResBuf::newRb(OdResBuf::kRtInt32, 0)));
  EXPECT_TRUE(parameter->IsUpdatedFlipped());

  // A line without a direction in the plane falls back to the X axis.
  parameter->SetDefinedPosition(1, OdGePoint3d(2, 0, 5));
  graph->Reset(OdDbObjectId::kNull, false);
  click();
  evaluate();
  EXPECT_TRUE(gripFaces(OdGeVector3d(0, -1, 0), OdGeVector3d(-1, -0.5, 0)));
  click();
  evaluate();
  EXPECT_TRUE(gripFaces(OdGeVector3d(0, 1, 0), OdGeVector3d(-1, 0.5, 0)));
}

TEST_F(FlipParameterTest, InstanceStateLoadsAsTheProposedState) {
  click();
  evaluate();
  OdResBufPtr chain = parameter->SaveInstance(nullptr);
  std::vector<int> types;
  for (OdResBufPtr item = chain; !item.isNull(); item = item->next())
    types.push_back(item->restype());
  EXPECT_EQ(types, (std::vector<int>{290, 5009, 5009, 5010}));

  // Loaded as the proposed state: the next evaluation commits it.
  auto other = add<CJbCustBlockFlipParameter>();
  OdResBufPtr cursor = chain;
  ASSERT_TRUE(other->LoadInstance(cursor, nullptr));
  EXPECT_TRUE(other->IsUpdatedFlipped());
  EXPECT_FALSE(other->IsCurrentFlipped());
  EXPECT_TRUE(other->NeedEvaluate());
  chain->last()->setRestype(OdResBuf::kRtDouble);
  cursor = chain;
  EXPECT_FALSE(other->LoadInstance(cursor, nullptr));
}
