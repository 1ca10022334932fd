// Move, stretch and polar stretch: the selection follows the parameter point the action is bound
// to, through the action's modifier; frames decide what is stretched; nothing moves without a
// parameter or a displacement.
#include <cmath>

#include "ActionTestSupport.h"
#include "actions/CJbCustBlockMoveAction.h"
#include "actions/CJbCustBlockPolarStretchAction.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockPointParameter.h"
#include "parameters/CJbCustBlockPolarParameter.h"
#include "parameters/CJbCustBlockRotationParameter.h"

class ActionKindTest : public ActionTest {
 protected:
  void SetUp() override {
    ActionTest::SetUp();
    const OdDbObjectId block = addBlock("Door");
    lineId = addLine(block, OdGePoint3d(0, 0, 0), OdGePoint3d(10, 0, 0));
    action = new CJbCustBlockMoveAction;
    graph->AppendNode(action);
    action->SetEntities(0, {lineId});
  }

  template <class T>
  OdSmartPtr<T> addParameter(const OdGePoint3d& end) {
    OdSmartPtr<T> parameter(new T);
    graph->AppendNode(parameter);
    parameter->SetDefinedPosition(0, OdGePoint3d::kOrigin);
    if (parameter->GetPointCount() > 1) parameter->SetDefinedPosition(1, end);
    parameter->Reset(nullptr);
    return parameter;
  }

  bool evaluate() {
    CJbDbCustBlockGraphEvaluationContextPtr context(
        new CJbDbCustBlockGraphEvaluationContext(0, OdDbObjectId::kNull));
    return action->Evaluate(context.get());
  }

  OdDbObjectId lineId;
  CJbCustBlockMoveActionPtr action;
};

TEST_F(ActionKindTest, SelectionFollowsTheBoundPointThroughTheModifier) {
  auto linear = addParameter<CJbCustBlockLinearParameter>(OdGePoint3d(10, 0, 0));
  action->SetParameter(linear->GetElementId());
  action->SetParameterPointIndex(1);
  EXPECT_TRUE(action->IsValid());
  EXPECT_TRUE(evaluate());
  EXPECT_TRUE(SamePoint(line(lineId)->startPoint(), OdGePoint3d::kOrigin));

  linear->SetUpdatedPosition(1, OdGePoint3d(12, 1, 0));
  action->SetAngleOffsetAndDistanceMultiplier(2.0, std::acos(-1.0) / 2,
                                              CJbCustBlockAction::kWholeVector);
  EXPECT_TRUE(evaluate());
  EXPECT_TRUE(SamePoint(line(lineId)->startPoint(), OdGePoint3d(-2, 4, 0)));

  // A diagonal drag counted along X only.
  auto point = addParameter<CJbCustBlockPointParameter>(OdGePoint3d());
  point->SetUpdatedPosition(0, OdGePoint3d(3, 4, 0));
  action->SetParameter(point->GetElementId());
  action->SetParameterPointIndex(0);
  action->SetAngleOffsetAndDistanceMultiplier(1.0, 0.0, CJbCustBlockAction::kXComponent);
  EXPECT_TRUE(evaluate());
  EXPECT_TRUE(SamePoint(line(lineId)->startPoint(), OdGePoint3d(1, 4, 0)));
}

TEST_F(ActionKindTest, WithoutAnAcceptableParameterNothingMoves) {
  EXPECT_FALSE(evaluate());
  EXPECT_EQ(action->GetBaseName(), OdString("Move"));
  auto rotation = addParameter<CJbCustBlockRotationParameter>(OdGePoint3d(10, 0, 0));
  action->SetParameter(rotation->GetElementId());
  EXPECT_FALSE(action->IsValid());
  graph->RemoveNode(rotation->GetElementId());
  EXPECT_EQ(action->GetParameter(), 0);
  EXPECT_FALSE(evaluate());
  EXPECT_TRUE(SamePoint(line(lineId)->endPoint(), OdGePoint3d(10, 0, 0)));
}

TEST_F(ActionKindTest, StretchMovesOnlyThePointsInsideItsFrame) {
  CJbCustBlockStretchActionPtr stretch(new CJbCustBlockStretchAction);
  graph->AppendNode(stretch);
  auto linear = addParameter<CJbCustBlockLinearParameter>(OdGePoint3d(10, 0, 0));
  stretch->SetParameter(linear->GetElementId());
  stretch->SetParameterPointIndex(1);
  const OdDbObjectId inside =
      addLine(open<OdDbLine>(lineId)->ownerId(), OdGePoint3d(9, 1, 0), OdGePoint3d(11, 1, 0));
  stretch->SetEntities(0, {lineId, inside});
  stretch->SetSelectionDefinition(0, {OdGePoint3d(8, -2, 0), OdGePoint3d(12, 2, 0)}, true);
  linear->SetUpdatedPosition(1, OdGePoint3d(14, 0, 0));
  CJbDbCustBlockGraphEvaluationContextPtr context(
      new CJbDbCustBlockGraphEvaluationContext(0, OdDbObjectId::kNull));
  EXPECT_TRUE(stretch->Evaluate(context.get()));
  EXPECT_TRUE(SamePoint(line(lineId)->startPoint(), OdGePoint3d::kOrigin));
  EXPECT_TRUE(SamePoint(line(lineId)->endPoint(), OdGePoint3d(14, 0, 0)));
  EXPECT_TRUE(SamePoint(line(inside)->startPoint(), OdGePoint3d(13, 1, 0)));
}

TEST_F(ActionKindTest, PolarStretchTurnsBothSetsThenStretchesTheFirst) {
  CJbCustBlockPolarStretchActionPtr polar(new CJbCustBlockPolarStretchAction);
  graph->AppendNode(polar);
  auto parameter = addParameter<CJbCustBlockPolarParameter>(OdGePoint3d(10, 0, 0));
  polar->SetParameter(parameter->GetElementId());
  polar->SetParameterPointIndex(1);
  const OdDbObjectId turned =
      addLine(open<OdDbLine>(lineId)->ownerId(), OdGePoint3d(10, 1, 0), OdGePoint3d(10, 3, 0));
  polar->SetEntities(0, {lineId});
  polar->SetSelectionDefinition(0, {OdGePoint3d(8, -2, 0), OdGePoint3d(12, 2, 0)}, true);
  polar->SetEntities(1, {turned});
  CJbDbCustBlockGraphEvaluationContextPtr context(
      new CJbDbCustBlockGraphEvaluationContext(0, OdDbObjectId::kNull));
  EXPECT_TRUE(polar->Evaluate(context.get()));

  // A quarter turn and twice the length: the line turns whole, then only its end goes out.
  parameter->SetUpdatedPosition(1, OdGePoint3d(0, 20, 0));
  EXPECT_TRUE(polar->Evaluate(context.get()));
  EXPECT_TRUE(SamePoint(line(lineId)->startPoint(), OdGePoint3d::kOrigin));
  EXPECT_TRUE(SamePoint(line(lineId)->endPoint(), OdGePoint3d(0, 20, 0)));
  EXPECT_TRUE(SamePoint(line(turned)->startPoint(), OdGePoint3d(-1, 10, 0)));
  EXPECT_TRUE(SamePoint(line(turned)->endPoint(), OdGePoint3d(-3, 10, 0)));

  polar->SetParameterPointIndex(2);
  EXPECT_FALSE(polar->Evaluate(context.get()));
}
