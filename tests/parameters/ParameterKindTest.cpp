// Point, linear, polar and base-point parameters: values, grip drags turned into snapped
// lengths and angles, transforms, instance state and filing of each kind.
#include "ParameterTestSupport.h"
#include "core/CJbCustBlockProxyElement.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "parameters/CJbCustBlockBasePointParameter.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockPointParameter.h"
#include "parameters/CJbCustBlockPolarParameter.h"
#include "parameters/grips/CJbCustBlockBaseGrip.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"
#include "parameters/grips/CJbCustBlockPolarGrip.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbPoint.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePlane.h"

class ParameterKindTest : public ParameterTest {
 protected:
  // Drags the grip of `point` by `by` and evaluates the parameter as the graph would.
  static void drag(CJbCustBlockParameter* parameter, unsigned point, const OdGeVector3d& by) {
    CJbCustBlockGripPtr grip = CJbCustBlockGrip::cast(
        parameter->GetBlockGraph(OdDb::kForRead)->GetNode(parameter->GetGrip(point)).get());
    grip->SetUpdatedPosition(grip->GetCurrentPosition() + by);
    CJbDbCustBlockGraphEvaluationContext context(0, OdDbObjectId::kNull);
    parameter->Evaluate(&context);
  }
  static void commit(CJbCustBlockElement* element) {
    CJbDbCustBlockGraphEvaluationContext context(0, OdDbObjectId::kNull);
    element->EndEvaluate(&context);
  }
  template <class Parameter, class Grip>
  OdSmartPtr<Parameter> withGrips(const OdGePoint3d& start, const OdGePoint3d& end) {
    auto parameter = add<Parameter>();
    place(parameter.get(), start, end);
    bind(parameter.get(), 0, add<Grip>().get());
    bind(parameter.get(), 1, add<Grip>().get());
    return parameter;
  }
};

TEST_F(ParameterKindTest, LinearDragsTakeOnlyTheAlongPartAndNeverCrossTheBase) {
  auto linear = withGrips<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
      OdGePoint3d(0, 0, 0), OdGePoint3d(10, 0, 0));
  drag(linear.get(), 1, OdGeVector3d(0, 4, 0));
  EXPECT_TRUE(SamePoint(linear->GetUpdatedPosition(1), OdGePoint3d(10, 0, 0)));
  drag(linear.get(), 1, OdGeVector3d(-12, 0, 0));
  EXPECT_TRUE(SamePoint(linear->GetUpdatedPosition(1), OdGePoint3d(10, 0, 0)));
  drag(linear.get(), 1, OdGeVector3d(-10, 0, 0));
  EXPECT_DOUBLE_EQ(real(linear->GetValue(0)), 10.0);
  drag(linear.get(), 1, OdGeVector3d(3, 1, 0));
  EXPECT_TRUE(SamePoint(linear->GetUpdatedPosition(1), OdGePoint3d(13, 0, 0)));
  EXPECT_TRUE(SamePoint(linear->GetUpdatedPosition(0), OdGePoint3d(0, 0, 0)));
}

TEST_F(ParameterKindTest, LinearDragSnapsToTheIncrementAndTheUndraggedEndStays) {
  auto linear = withGrips<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
      OdGePoint3d(0, 0, 0), OdGePoint3d(6, 8, 0));
  linear->GetValueInfoForModify(0)->SetIncrement(10.0, linear.get());
  drag(linear.get(), 1, OdGeVector3d(7.8, 10.4, 0));  // length 23
  EXPECT_NEAR(real(linear->GetValue(0)), 20.0, 1e-9);
  EXPECT_TRUE(SamePoint(linear->GetUpdatedPosition(1), OdGePoint3d(12, 16, 0)));

  linear->Reset(nullptr);
  drag(linear.get(), 0, OdGeVector3d(-7.8, -10.4, 0));
  EXPECT_TRUE(SamePoint(linear->GetUpdatedPosition(1), OdGePoint3d(6, 8, 0)));
  EXPECT_TRUE(SamePoint(linear->GetUpdatedPosition(0), OdGePoint3d(-6, -8, 0)));
}

TEST_F(ParameterKindTest, MidpointLinearStretchesBothEndsAndTakesNegativeLengthsAsPositive) {
  auto linear = withGrips<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
      OdGePoint3d(0, 0, 0), OdGePoint3d(10, 0, 0));
  linear->SetBasePosition(CJbCustBlockLinearParameter::kMidpoint);
  drag(linear.get(), 1, OdGeVector3d(2, 0, 0));
  EXPECT_TRUE(SamePoint(linear->GetUpdatedPosition(0), OdGePoint3d(-2, 0, 0)));
  EXPECT_TRUE(SamePoint(linear->GetUpdatedPosition(1), OdGePoint3d(12, 0, 0)));
  commit(linear.get());
  // Dragging onto the midpoint is refused.
  drag(linear.get(), 1, OdGeVector3d(-7, 0, 0));
  EXPECT_DOUBLE_EQ(real(linear->GetValue(0)), 14.0);

  EXPECT_TRUE(linear->SetValue(0, realValue(-5.0)));
  EXPECT_TRUE(SamePoint(linear->GetUpdatedPosition(0), OdGePoint3d(2.5, 0, 0)));
  EXPECT_TRUE(SamePoint(linear->GetUpdatedPosition(1), OdGePoint3d(7.5, 0, 0)));
  EXPECT_FALSE(linear->SetValue(0, OdResBuf::newRb(OdResBuf::kRtInt32, 3)));
  EXPECT_FALSE(linear->SetValue(0, realValue(std::nan(""))));
  EXPECT_FALSE(linear->SetValue(1, realValue(3.0)));
  EXPECT_TRUE(linear->GetValue(1).isNull());

  OdSmartPtr<CJbCustBlockLinearParameter> copy(new CJbCustBlockLinearParameter);
  ASSERT_EQ(ElementFilingRoundTrip::Copy(linear.get(), copy.get()), eOk);
  EXPECT_EQ(copy->GetBasePosition(), CJbCustBlockLinearParameter::kMidpoint);
  EXPECT_DOUBLE_EQ(copy->GetDistance(2), 10.0);
}

TEST_F(ParameterKindTest, PointValuesAndDrags) {
  auto point = add<CJbCustBlockPointParameter>();
  point->SetDefinedPosition(0, OdGePoint3d(1, 2, 0));
  bind(point.get(), 0, add<CJbCustBlockBaseGrip>().get());
  EXPECT_EQ(point->GetValueInfo(1)->GetName(), point->GetValueInfo(0)->GetName() + " X");
  drag(point.get(), 0, OdGeVector3d(3, -1, 0));
  EXPECT_TRUE(SamePoint(point->GetValue(0)->getPoint3d(), OdGePoint3d(4, 1, 0)));
  EXPECT_DOUBLE_EQ(real(point->GetValue(1)), 4.0);
  EXPECT_DOUBLE_EQ(real(point->GetValue(2)), 1.0);
  EXPECT_TRUE(point->SetValue(2, realValue(7.0)));
  EXPECT_TRUE(point->SetValue(0, OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d(0, 7, 0))));
  EXPECT_FALSE(point->SetValue(0, realValue(1.0)));
  EXPECT_FALSE(point->SetValue(1, OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d(0, 0, 0))));
  EXPECT_FALSE(point->SetValue(1, realValue(std::numeric_limits<double>::infinity())));
  EXPECT_TRUE(SamePoint(point->GetUpdatedPosition(0), OdGePoint3d(0, 7, 0)));
  EXPECT_DOUBLE_EQ(real(point->GetDefinitionValue(1)), 1.0);
}

TEST_F(ParameterKindTest, PolarAnglesAndDistancesAndTheirDegenerateCases) {
  auto polar = withGrips<CJbCustBlockPolarParameter, CJbCustBlockPolarGrip>(OdGePoint3d(1, 1, 0),
                                                                            OdGePoint3d(1, 1, 0));
  EXPECT_TRUE(polar->GetDirection(0).isEqualTo(OdGeVector3d::kXAxis));
  EXPECT_TRUE(polar->SetValue(0, realValue(2.0)));
  EXPECT_TRUE(SamePoint(polar->GetUpdatedPosition(1), OdGePoint3d(3, 1, 0)));
  EXPECT_TRUE(polar->SetValue(1, OdResBuf::newRb(OdResBuf::kRtAngle, OdGeAngle::kHalfPi)));
  EXPECT_TRUE(SamePoint(polar->GetUpdatedPosition(1), OdGePoint3d(1, 3, 0)));
  EXPECT_EQ(polar->GetValue(1)->restype(), OdResBuf::kRtAngle);
  EXPECT_NEAR(real(polar->GetValue(1)), OdGeAngle::kHalfPi, 1e-12);
  EXPECT_FALSE(polar->SetValue(1, OdResBuf::newRb(OdResBuf::kRtInt32, 1)));

  // A reference direction of no length gives angle 0 and collapses the length when set.
  polar->SetCurrentReferenceVector(OdGeVector3d::kZero);
  OdResBufPtr state = polar->SaveInstance(nullptr);
  OdResBufPtr cursor = state;
  ASSERT_TRUE(polar->LoadInstance(cursor, nullptr));
  EXPECT_DOUBLE_EQ(real(polar->GetValue(1)), 0.0);
  EXPECT_TRUE(polar->SetValue(1, realValue(1.0)));
  EXPECT_DOUBLE_EQ(polar->GetDistance(0), 0.0);
}

TEST_F(ParameterKindTest, PolarDragSnapsDistanceAndAngleAndCommitsGripDirections) {
  auto polar = withGrips<CJbCustBlockPolarParameter, CJbCustBlockPolarGrip>(OdGePoint3d(0, 0, 0),
                                                                            OdGePoint3d(10, 0, 0));
  polar->GetValueInfoForModify(0)->SetIncrement(5.0, polar.get());
  polar->GetValueInfoForModify(1)->SetList({OdGeAngle::kHalfPi}, polar.get());
  drag(polar.get(), 1, OdGeVector3d(-9, 11.5, 0));  // to (1, 11.5)
  EXPECT_TRUE(SamePoint(polar->GetUpdatedPosition(1), OdGePoint3d(0, 10, 0)));
  commit(polar.get());
  CJbCustBlockGripPtr end = CJbCustBlockGrip::cast(graph->GetNode(polar->GetGrip(1)).get());
  EXPECT_TRUE(end->GetCurrentDirection().isEqualTo(OdGeVector3d::kYAxis));
  commit(end.get());

  // Dragging the start alone keeps the end.
  drag(polar.get(), 0, OdGeVector3d(0.4, -6, 0));
  EXPECT_TRUE(SamePoint(polar->GetUpdatedPosition(1), OdGePoint3d(0, 10, 0)));
  EXPECT_TRUE(SamePoint(polar->GetUpdatedPosition(0), OdGePoint3d(0, -5, 0)));
}

TEST_F(ParameterKindTest, PolarAngleSurvivesAMirrorOfTheParameter) {
  auto polar = withGrips<CJbCustBlockPolarParameter, CJbCustBlockPolarGrip>(OdGePoint3d(0, 0, 0),
                                                                            OdGePoint3d(1, 1, 0));
  const double before = real(polar->GetValue(1));
  polar->Transform(OdGeMatrix3d::mirroring(OdGePlane(OdGePoint3d::kOrigin, OdGeVector3d::kXAxis)),
                   false);
  EXPECT_TRUE(SamePoint(polar->GetUpdatedPosition(1), OdGePoint3d(-1, 1, 0)));
  EXPECT_NEAR(real(polar->GetValue(1)), before, 1e-12);
  EXPECT_TRUE(polar->GetUpdatedNormal().isEqualTo(-OdGeVector3d::kZAxis));
  EXPECT_TRUE(polar->GetCurrentNormal().isEqualTo(-OdGeVector3d::kZAxis));
  // The definition value is measured against the defined reference.
  EXPECT_NEAR(real(polar->GetDefinitionValue(1)), OdGeAngle::kPi / 4, 1e-12);
  polar->Reset(nullptr);
  EXPECT_TRUE(polar->GetUpdatedNormal().isEqualTo(OdGeVector3d::kZAxis));
}

TEST_F(ParameterKindTest, InstanceItemsOfEachKindLoadBackAndAShortChainFails) {
  auto polar = add<CJbCustBlockPolarParameter>();
  auto basePoint = add<CJbCustBlockBasePointParameter>();
  auto point = add<CJbCustBlockPointParameter>();
  auto linear = add<CJbCustBlockLinearParameter>();
  polar->SetCurrentReferenceVector(OdGeVector3d::kYAxis);
  basePoint->SetCurrentTranslate(OdGeVector3d(1, 2, 0));
  const std::pair<CJbCustBlockParameter*, unsigned> kinds[] = {
      {polar.get(), 5u}, {basePoint.get(), 3u}, {point.get(), 2u}, {linear.get(), 3u}};
  for (const auto& [parameter, items] : kinds) {
    OdResBufPtr chain = parameter->SaveInstance(nullptr);
    unsigned count = 0;
    OdResBufPtr last;
    for (OdResBufPtr item = chain; !item.isNull(); item = item->next(), ++count)
      last = item;
    EXPECT_EQ(count, items) << parameter->GetName().str();
    OdResBufPtr cursor = chain;
    EXPECT_TRUE(parameter->LoadInstance(cursor, nullptr));
    EXPECT_TRUE(cursor.isNull());
    // Without its last item the chain is malformed.
    OdResBufPtr beforeLast = chain;
    while (beforeLast->next() != last)
      beforeLast = beforeLast->next();
    beforeLast->setNext(OdResBufPtr());
    cursor = chain;
    EXPECT_FALSE(parameter->LoadInstance(cursor, nullptr)) << parameter->GetName().str();
  }
  EXPECT_TRUE(polar->GetUpdatedReferenceVector().isEqualTo(OdGeVector3d::kYAxis));
  EXPECT_TRUE(basePoint->GetCurrentTranslate().isEqualTo(OdGeVector3d(1, 2, 0)));
}

TEST_F(ParameterKindTest, BasePointRelocatesTheBlockAndMovesItsReferenceBack) {
  OdDbDatabasePtr database = OdDbDatabase::createObject();
  OdDbObjectId blockId, pointId, referenceId;
  {
    OdSmartPtr<OdDbBlockTable> table =
        OdDbBlockTable::cast(database->getBlockTableId().safeOpenObject(OdDb::kForWrite).get());
    OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
    block->setName("Door");
    blockId = table->add(block.get());
    OdSmartPtr<OdDbPoint> mark = OdDbPoint::createObject();
    mark->setPosition(OdGePoint3d(5, 5, 0));
    pointId = block->appendOdDbEntity(mark.get());
    OdDbBlockTableRecordPtr space = OdDbBlockTableRecord::cast(
        database->getModelSpaceId().safeOpenObject(OdDb::kForWrite).get());
    OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    reference->setBlockTableRecord(blockId);
    reference->setPosition(OdGePoint3d(100, 0, 0));
    referenceId = space->appendOdDbEntity(reference.get());
  }
  auto basePoint = add<CJbCustBlockBasePointParameter>();
  EXPECT_EQ(basePoint->GetPriority(), CJbCustBlockElement::kPriorityHighest);
  EXPECT_TRUE(basePoint->IsValid());
  EXPECT_TRUE(basePoint->IsChain());
  EXPECT_EQ(basePoint->GetMaxPointCount(), 0u);
  basePoint->SetDefinedPosition(0, OdGePoint3d(2, 1, 0));
  basePoint->SetRelocationEnabled(true);
  EXPECT_TRUE(basePoint->Reset(nullptr));
  EXPECT_TRUE(SamePoint(basePoint->GetCurrentPosition(0), OdGePoint3d(2, 1, 0)));
  EXPECT_TRUE(basePoint->GetCurrentTranslate().isZeroLength());
  CJbDbCustBlockGraphEvaluationContext context(
      CJbDbCustBlockGraphEvaluationContext::kModifyBlockReferences, referenceId);
  EXPECT_TRUE(basePoint->EndEvaluate(&context));
  EXPECT_TRUE(basePoint->GetCurrentTranslate().isEqualTo(OdGeVector3d(-2, -1, 0)));
  EXPECT_TRUE(
      SamePoint(OdDbPoint::cast(pointId.safeOpenObject().get())->position(), OdGePoint3d(3, 4, 0)));
  EXPECT_TRUE(SamePoint(OdDbBlockReference::cast(referenceId.safeOpenObject().get())->position(),
                        OdGePoint3d(102, 1, 0)));
  // Relocated once: a second evaluation leaves everything in place.
  EXPECT_TRUE(SamePoint(basePoint->GetCurrentPosition(0), OdGePoint3d::kOrigin));
  EXPECT_TRUE(basePoint->EndEvaluate(&context));
  EXPECT_TRUE(basePoint->GetCurrentTranslate().isEqualTo(OdGeVector3d(-2, -1, 0)));
  EXPECT_TRUE(
      SamePoint(OdDbPoint::cast(pointId.safeOpenObject().get())->position(), OdGePoint3d(3, 4, 0)));

  OdSmartPtr<CJbCustBlockBasePointParameter> copy(new CJbCustBlockBasePointParameter);
  ASSERT_EQ(ElementFilingRoundTrip::Copy(basePoint.get(), copy.get()), eOk);
  EXPECT_TRUE(copy->IsRelocationEnabled());
  basePoint->Transform(OdGeMatrix3d::translation(OdGeVector3d(1, 0, 0)), true);
  EXPECT_TRUE(SamePoint(basePoint->GetUpdatedPosition(0), OdGePoint3d(1, 0, 0)));
  EXPECT_TRUE(SamePoint(basePoint->GetCurrentPosition(0), OdGePoint3d(1, 0, 0)));
}

TEST_F(ParameterKindTest, EveryKindTravelsThroughItsProxyFormAndComesBackAsItself) {
  auto linear = withGrips<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
      OdGePoint3d(0, 0, 0), OdGePoint3d(4, 3, 0));
  linear->SetBasePosition(CJbCustBlockLinearParameter::kMidpoint);
  for (int id : graph->GetAllNodeIds()) {
    const CJbCustBlockElementPtr node = graph->GetNode(id);
    const CJbCustBlockProxyElementPtr proxy =
        CJbCustBlockProxyElement::CreateProxyFromElement(node.get(), graph.get());
    const CJbCustBlockElementPtr back = proxy->CreateElement(graph.get());
    ASSERT_FALSE(back.isNull());
    EXPECT_EQ(back->isA(), node->isA());
    EXPECT_EQ(back->GetName(), node->GetName());
  }
  const CJbCustBlockLinearParameterPtr copy = CJbCustBlockLinearParameter::cast(
      CJbCustBlockProxyElement::CreateProxyFromElement(linear.get(), graph.get())
          ->CreateElement(graph.get())
          .get());
  EXPECT_EQ(copy->GetBasePosition(), CJbCustBlockLinearParameter::kMidpoint);
  EXPECT_EQ(copy->GetGrip(1), linear->GetGrip(1));
  EXPECT_DOUBLE_EQ(copy->GetDistance(2), 5.0);
}
