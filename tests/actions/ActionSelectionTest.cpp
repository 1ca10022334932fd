// Selection sets: the transformation reaches the entities of the block being evaluated and the
// dependent elements; a stretch frame decides which entities are stretched and which moved.
#include "ActionTestSupport.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockPointParameter.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"
#include "platform/ge/OdGeMatrix3d.h"

class ActionSelectionTest : public ActionTest {
 protected:
  void SetUp() override {
    ActionTest::SetUp();
    master = addBlock("Door");
    copy = addBlock("*U1");
    // Crossing the frame x <= 5, wholly inside it, wholly outside it.
    for (const OdDbObjectId& block : {master, copy}) {
      OdArray<OdDbObjectId>& ids = block == master ? masterIds : copyIds;
      ids.append(addLine(block, OdGePoint3d(0, 0, 0), OdGePoint3d(10, 0, 0)));
      ids.append(addLine(block, OdGePoint3d(1, 1, 0), OdGePoint3d(2, 2, 0)));
      ids.append(addLine(block, OdGePoint3d(20, 0, 0), OdGePoint3d(30, 0, 0)));
    }
    action = addAction();
    action->SetEntities(0, masterIds);
  }

  bool transform(const OdGeVector3d& by, int mode = 0) {
    CJbDbCustBlockGraphEvaluationContextPtr context(
        new CJbDbCustBlockGraphEvaluationContext(mode, copy));
    return action->TransformAllSelections(context.get(), OdGeMatrix3d::translation(by));
  }

  OdDbObjectId master, copy;
  OdArray<OdDbObjectId> masterIds, copyIds;
  TestActionPtr action;
};

TEST_F(ActionSelectionTest, TheEvaluatedBlockMovesNotTheMaster) {
  action->SetCurrentEntities(0, copyIds);
  EXPECT_TRUE(transform(OdGeVector3d(1, 2, 0)));
  EXPECT_TRUE(SamePoint(line(copyIds[0])->startPoint(), OdGePoint3d(1, 2, 0)));
  EXPECT_TRUE(SamePoint(line(copyIds[2])->endPoint(), OdGePoint3d(31, 2, 0)));
  EXPECT_TRUE(SamePoint(line(masterIds[0])->startPoint(), OdGePoint3d(0, 0, 0)));

  // Block entities are left alone when the evaluation says so; out-of-range sets fail.
  EXPECT_TRUE(
      transform(OdGeVector3d(1, 0, 0), CJbDbCustBlockGraphEvaluationContext::kIgnoreBlockEntities));
  EXPECT_TRUE(SamePoint(line(copyIds[0])->startPoint(), OdGePoint3d(1, 2, 0)));
  EXPECT_FALSE(
      action->TransformSelection(nullptr, 1, OdGeMatrix3d::translation(OdGeVector3d(1, 0, 0))));

  // A selection longer than the block's matching entities is an error that changes nothing.
  action->SetCurrentEntities(0, OdArray<OdDbObjectId>{copyIds[0]});
  EXPECT_OD_ERROR(transform(OdGeVector3d(1, 0, 0)), eInvalidIndex);
  EXPECT_TRUE(SamePoint(line(copyIds[0])->startPoint(), OdGePoint3d(1, 2, 0)));
  // The identity touches nothing, so it never needs the entities.
  EXPECT_TRUE(transform(OdGeVector3d::kZero));
}

TEST_F(ActionSelectionTest, FreeAttributeDefinitionsStayWhereTheyAre) {
  OdDbAttributeDefinitionPtr free = OdDbAttributeDefinition::createObject();
  free->setPosition(OdGePoint3d(1, 1, 0));
  OdDbAttributeDefinitionPtr locked = OdDbAttributeDefinition::createObject();
  locked->setPosition(OdGePoint3d(1, 1, 0));
  locked->setLockPositionInBlock(true);
  OdDbBlockTableRecordPtr block = open<OdDbBlockTableRecord>(master, OdDb::kForWrite);
  const OdArray<OdDbObjectId> ids{block->appendOdDbEntity(free.get()),
                                  block->appendOdDbEntity(locked.get())};
  block.release();
  free.release();
  locked.release();
  action->SetEntities(0, ids);
  EXPECT_TRUE(transform(OdGeVector3d(0, 3, 0)));
  EXPECT_TRUE(SamePoint(open<OdDbAttributeDefinition>(ids[0])->position(), OdGePoint3d(1, 1, 0)));
  EXPECT_TRUE(SamePoint(open<OdDbAttributeDefinition>(ids[1])->position(), OdGePoint3d(1, 4, 0)));
}

TEST_F(ActionSelectionTest, RectangleFrameStretchesCrossingEntitiesAndMovesTheRest) {
  action->stretch = true;
  action->SetSelectionDefinition(0, {OdGePoint3d(5, 5, 0), OdGePoint3d(-5, -5, 0)}, true);
  EXPECT_TRUE(action->IsRectangleSelection(0));
  OdArray<OdArray<int>> indices;
  action->GetEntities(0, &indices);
  ASSERT_EQ(indices.length(), 3u);
  EXPECT_EQ(indices[0], OdArray<int>{0});
  EXPECT_TRUE(indices[1].isEmpty());
  EXPECT_TRUE(indices[2].isEmpty());

  action->SetCurrentEntities(0, copyIds);
  EXPECT_TRUE(transform(OdGeVector3d(-1, 0, 0)));
  // Only the start inside the frame moves; the other two lines move whole.
  EXPECT_TRUE(SamePoint(line(copyIds[0])->startPoint(), OdGePoint3d(-1, 0, 0)));
  EXPECT_TRUE(SamePoint(line(copyIds[0])->endPoint(), OdGePoint3d(10, 0, 0)));
  EXPECT_TRUE(SamePoint(line(copyIds[1])->endPoint(), OdGePoint3d(1, 2, 0)));
  EXPECT_TRUE(SamePoint(line(copyIds[2])->startPoint(), OdGePoint3d(19, 0, 0)));

  // A frame moved along picks the other end.
  action->RecalculateSelectionSetByDefinition(1, OdGeVector3d(10, 0, 0));
  action->GetEntities(0, &indices);
  EXPECT_EQ(indices[0], OdArray<int>{1});
  // The same set picked plainly stretches nothing.
  action->SetSelectionDefinition(0, OdArray<OdGePoint3d>(), true);
  action->GetEntities(0, &indices);
  EXPECT_TRUE(indices[0].isEmpty());
}

TEST_F(ActionSelectionTest, PolygonFrameAndDependentElements) {
  action->stretch = true;
  OdSmartPtr<CJbCustBlockLinearParameter> parameter(new CJbCustBlockLinearParameter);
  graph->AppendNode(parameter);
  parameter->SetDefinedPosition(0, OdGePoint3d(1, 0, 0));
  parameter->SetDefinedPosition(1, OdGePoint3d(10, 0, 0));
  parameter->Reset(nullptr);
  OdSmartPtr<CJbCustBlockPointParameter> carried(new CJbCustBlockPointParameter);
  graph->AppendNode(carried);
  carried->SetDefinedPosition(0, OdGePoint3d(3, 3, 0));
  carried->Reset(nullptr);
  action->SetElements(
      0, {parameter->GetElementId(), carried->GetElementId(), action->GetElementId(), 999});
  // A triangle holding the line's end (10, 0) and the parameter's end, not the rest.
  action->SetSelectionDefinition(
      0, {OdGePoint3d(8, -2, 0), OdGePoint3d(14, -2, 0), OdGePoint3d(11, 4, 0)}, true);
  EXPECT_TRUE(action->IsPolygonSelection(0));
  OdArray<OdArray<int>> indices;
  action->GetEntities(0, &indices);
  EXPECT_EQ(indices[0], OdArray<int>{1});
  EXPECT_TRUE(indices[1].isEmpty());
  action->GetElements(0, &indices);
  EXPECT_EQ(indices[0], OdArray<int>{1});
  EXPECT_TRUE(indices[1].isEmpty());

  // The stretched parameter keeps its start; the other one moves whole; itself and missing
  // elements are skipped.
  EXPECT_TRUE(transform(OdGeVector3d(2, 0, 0)));
  EXPECT_TRUE(SamePoint(line(masterIds[0])->endPoint(), OdGePoint3d(12, 0, 0)));
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(0), OdGePoint3d(1, 0, 0)));
  EXPECT_TRUE(SamePoint(parameter->GetUpdatedPosition(1), OdGePoint3d(12, 0, 0)));
  EXPECT_TRUE(SamePoint(carried->GetUpdatedPosition(0), OdGePoint3d(5, 3, 0)));

  // Cleanup drops elements no longer in the graph and erased entities.
  graph->RemoveNode(carried->GetElementId());
  action->Cleanup();
  EXPECT_EQ(action->GetElements(0),
            (OdArray<int>{parameter->GetElementId(), action->GetElementId()}));
  open<OdDbLine>(masterIds[1], OdDb::kForWrite)->erase();
  action->Cleanup();
  EXPECT_EQ(action->GetEntities(0), (OdArray<OdDbObjectId>{masterIds[0], masterIds[2]}));
  EXPECT_EQ(action->GetCurrentEntities(0), (OdArray<OdDbObjectId>{masterIds[0], masterIds[2]}));
}

TEST_F(ActionSelectionTest, ParameterValidation) {
  TestActionPtr taken = addAction();
  OdSmartPtr<CJbCustBlockLinearParameter> linear(new CJbCustBlockLinearParameter);
  OdSmartPtr<CJbCustBlockPointParameter> point(new CJbCustBlockPointParameter);
  graph->AppendNode(linear);
  graph->AppendNode(point);
  taken->SetParameter(linear->GetElementId());
  EXPECT_TRUE(linear->HasConnection(taken->GetElementId(), false, true));
  EXPECT_TRUE(taken->IsValid());
  EXPECT_FALSE(action->IsValid());
  action->SetParameter(point->GetElementId());
  EXPECT_FALSE(action->IsValid());
  action->onePerParameter = true;
  const int linearId = linear->GetElementId(), pointId = point->GetElementId();
  const OdDbObjectId graphId = db->addOdDbObject(graph.get());
  graph.release();

  TestAction::ValidationErrorReason reason = TestAction::kParameterTaken;
  EXPECT_FALSE(action->ValidateParameter(graphId, 4711, reason));
  EXPECT_EQ(reason, TestAction::kNoError);
  EXPECT_FALSE(action->ValidateParameter(graphId, pointId, reason));
  EXPECT_EQ(reason, TestAction::kUnacceptableParameter);
  EXPECT_FALSE(action->ValidateParameter(graphId, linearId, reason));
  EXPECT_EQ(reason, TestAction::kParameterTaken);
  action->onePerParameter = false;
  EXPECT_TRUE(action->ValidateParameter(graphId, linearId, reason));
}

TEST_F(ActionSelectionTest, BadSelectionsChangeNothing) {
  // A frame without area stretches nothing.
  action->stretch = true;
  action->SetSelectionDefinition(0, {OdGePoint3d(-5, 0, 0), OdGePoint3d(5, 0, 0)}, true);
  OdArray<OdArray<int>> indices;
  action->GetEntities(0, &indices);
  EXPECT_TRUE(indices[0].isEmpty());

  // An erased entity fails the set before anything moves.
  action->SetCurrentEntities(0, copyIds);
  open<OdDbLine>(copyIds[2], OdDb::kForWrite)->erase();
  EXPECT_FALSE(transform(OdGeVector3d(1, 0, 0)));
  EXPECT_TRUE(SamePoint(line(copyIds[0])->startPoint(), OdGePoint3d::kOrigin));
}
