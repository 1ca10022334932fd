// Scale, rotate and flip: lengths, angles and flip states of their parameters turned into
// transformations about dependent or independent base points; mirrors of arcs, bulges and text;
// a stretch after a mirror follows the mirrored parameter.
#include <cmath>

#include "ActionTestSupport.h"
#include "actions/CJbCustBlockFlipAction.h"
#include "actions/CJbCustBlockRotateAction.h"
#include "actions/CJbCustBlockScaleAction.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "authoring/CJbCustBlockGraphAuthor.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "parameters/CJbCustBlockFlipParameter.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockRotationParameter.h"
#include "parameters/CJbCustBlockXYParameter.h"
#include "parameters/grips/CJbCustBlockFlipGrip.h"
#include "platform/db/entities/OdDbArc.h"
#include "platform/db/entities/OdDbMText.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "platform/db/entities/OdDbText.h"
#include "platform/db/filers/OdDbMemoryDwgFiler.h"
#include "platform/dxf/DxfFile.h"
#include "platform/ge/OdGeAngle.h"

namespace {
constexpr double kDegree = OdGeAngle::kPi / 180;

OdResBufPtr angle(double degrees) {
  return OdResBuf::newRb(OdResBuf::kRtAngle, degrees * kDegree);
}
OdResBufPtr length(double value) {
  return OdResBuf::newRb(OdResBuf::kRtDouble, value);
}
}  // namespace

class TransformingActionTest : public ActionTest {
 protected:
  void SetUp() override {
    ActionTest::SetUp();
    block = addBlock("Door");
  }

  template <class T>
  OdSmartPtr<T> add() {
    OdSmartPtr<T> element(new T);
    graph->AppendNode(element);
    return element;
  }
  template <class T>
  OdSmartPtr<T> addParameter(std::initializer_list<OdGePoint3d> points) {
    auto parameter = add<T>();
    unsigned index = 0;
    for (const OdGePoint3d& point : points)
      parameter->SetDefinedPosition(index++, point);
    return parameter;
  }
  template <class T>
  OdSmartPtr<T> addAction(const CJbCustBlockParameter* parameter,
                          const OdArray<OdDbObjectId>& entities) {
    auto action = add<T>();
    action->SetParameter(parameter ? parameter->GetElementId() : 0);
    action->SetEntities(0, entities);
    return action;
  }
  // One evaluation of the action alone, committing its parameter afterwards.
  bool evaluate(CJbCustBlockAction* action, CJbCustBlockParameter* parameter) {
    CJbDbCustBlockGraphEvaluationContext context(0, OdDbObjectId::kNull);
    const bool result = action->Evaluate(&context);
    parameter->EndEvaluate(&context);
    return result;
  }
  // A grip click on a flip parameter and the evaluation of the graph that follows.
  void clickAndEvaluate(CJbCustBlockFlipGrip* grip) {
    grip->SetFlipped(true);
    graph->Evaluate(OdDbObjectId::kNull, false);
  }
  OdSmartPtr<CJbCustBlockFlipGrip> addFlipGrip(CJbCustBlockFlipParameter* parameter) {
    OdSmartPtr<CJbCustBlockFlipGrip> grip(new CJbCustBlockFlipGrip);
    CJbCustBlockGraphAuthor(graph.get()).BindGrip(parameter, 0, grip.get());
    return grip;
  }

  OdDbObjectId block;
};

TEST_F(TransformingActionTest, FlipMirrorsArcsBulgesAndReadableTextAndTogglesBack) {
  const OdDbObjectId leaf = addLine(block, OdGePoint3d(0, 0, 0), OdGePoint3d(10, 0, 0));
  OdDbArcPtr swing = OdDbArc::createObject();
  swing->setRadius(10.0);
  swing->setEndAngle(OdGeAngle::kHalfPi);
  OdDbPolylinePtr sill = OdDbPolyline::createObject();
  sill->addVertexAt(0, OdGePoint2d(1, -1), 0.5);
  sill->addVertexAt(1, OdGePoint2d(5, -1));
  OdDbTextPtr label = OdDbText::createObject();
  label->setTextString("D1");
  label->setPosition(OdGePoint3d(3, 2, 0));
  OdDbMTextPtr note = OdDbMText::createObject();
  note->setContents("Fire door");
  note->setLocation(OdGePoint3d(2, 6, 0));
  OdArray<OdDbObjectId> ids{leaf};
  {
    auto record = open<OdDbBlockTableRecord>(block, OdDb::kForWrite);
    for (OdDbEntity* entity :
         std::initializer_list<OdDbEntity*>{swing.get(), sill.get(), label.get(), note.get()})
      ids.append(record->appendOdDbEntity(entity));
  }
  swing.release();
  sill.release();
  label.release();
  note.release();

  auto parameter = addParameter<CJbCustBlockFlipParameter>({OdGePoint3d(), OdGePoint3d(0, 10, 0)});
  auto grip = addFlipGrip(parameter.get());
  auto flip = addAction<CJbCustBlockFlipAction>(parameter.get(), ids);
  graph->Reset(OdDbObjectId::kNull, false);
  CJbDbCustBlockGraphEvaluationContext context(0, OdDbObjectId::kNull);
  EXPECT_FALSE(flip->Evaluate(&context));  // the state did not change
  EXPECT_TRUE(SamePoint(line(leaf)->endPoint(), OdGePoint3d(10, 0, 0)));

  clickAndEvaluate(grip.get());
  EXPECT_TRUE(SamePoint(line(leaf)->endPoint(), OdGePoint3d(-10, 0, 0)));
  auto arc = open<OdDbArc>(ids[1]);
  EXPECT_NEAR(arc->startAngle(), OdGeAngle::kHalfPi, 1e-12);
  EXPECT_NEAR(arc->endAngle(), OdGeAngle::kPi, 1e-12);
  EXPECT_TRUE(arc->normal().isEqualTo(OdGeVector3d::kZAxis));
  auto polyline = open<OdDbPolyline>(ids[2]);
  EXPECT_TRUE(polyline->getPoint2dAt(1).isEqualTo(OdGePoint2d(-5, -1)));
  EXPECT_DOUBLE_EQ(polyline->getBulgeAt(0), -0.5);
  auto text = open<OdDbText>(ids[3]);
  // Read forwards, the label ends where its start was mirrored to.
  EXPECT_EQ(text->horizontalMode(), OdDb::kTextRight);
  EXPECT_TRUE(SamePoint(text->alignmentPoint(), OdGePoint3d(-3, 2, 0)));
  EXPECT_NEAR(text->rotation(), 0.0, 1e-12);
  EXPECT_FALSE(text->isMirroredInX());
  EXPECT_TRUE(text->normal().isEqualTo(OdGeVector3d::kZAxis));
  auto mtext = open<OdDbMText>(ids[4]);
  EXPECT_TRUE(SamePoint(mtext->location(), OdGePoint3d(-2, 6, 0)));
  EXPECT_TRUE(mtext->direction().isEqualTo(OdGeVector3d::kXAxis));
  EXPECT_EQ(mtext->attachment(), OdDbMText::kTopRight);
  mtext.release();
  arc.release();
  polyline.release();
  text.release();

  clickAndEvaluate(grip.get());
  EXPECT_FALSE(parameter->IsCurrentFlipped());
  EXPECT_NEAR(open<OdDbArc>(ids[1])->endAngle(), OdGeAngle::kHalfPi, 1e-12);
  EXPECT_DOUBLE_EQ(open<OdDbPolyline>(ids[2])->getBulgeAt(0), 0.5);
  EXPECT_TRUE(SamePoint(open<OdDbText>(ids[3])->position(), OdGePoint3d(3, 2, 0)));
}

TEST_F(TransformingActionTest, RotateTurnsByTheChangeOfAngleAboutItsBase) {
  const OdDbObjectId arm = addLine(block, OdGePoint3d(5, 5, 0), OdGePoint3d(8, 5, 0));
  const OdGePoint3d at30(5 + 3 * std::cos(30 * kDegree), 5 + 3 * std::sin(30 * kDegree), 0);
  auto parameter = addParameter<CJbCustBlockRotationParameter>(
      {OdGePoint3d(5, 5, 0), OdGePoint3d(7, 5, 0), at30});
  auto rotate = addAction<CJbCustBlockRotateAction>(parameter.get(), {arm});

  // From 30 to 75 degrees: a turn of 45 about the parameter's base.
  ASSERT_TRUE(parameter->SetValue(0, angle(75)));
  EXPECT_TRUE(evaluate(rotate.get(), parameter.get()));
  const double half = 3 / std::sqrt(2.0);
  EXPECT_TRUE(SamePoint(line(arm)->endPoint(), OdGePoint3d(5 + half, 5 + half, 0)));

  rotate->SetBaseOffset(OdGeVector3d(1, 0, 0), false);
  ASSERT_TRUE(parameter->SetValue(0, angle(165)));
  EXPECT_TRUE(evaluate(rotate.get(), parameter.get()));
  EXPECT_TRUE(SamePoint(line(arm)->startPoint(), OdGePoint3d(6, 4, 0)));

  rotate->SetBaseOffset(OdGeVector3d(1, 0, 0), true);
  ASSERT_TRUE(parameter->SetValue(0, angle(255)));
  EXPECT_TRUE(evaluate(rotate.get(), parameter.get()));
  EXPECT_TRUE(SamePoint(line(arm)->startPoint(), OdGePoint3d(-3, 5, 0)));

  // A rotated point on the normal through the base gives no angle.
  parameter->SetUpdatedPosition(2, OdGePoint3d(5, 5, 3));
  EXPECT_TRUE(evaluate(rotate.get(), parameter.get()));
  EXPECT_TRUE(SamePoint(line(arm)->startPoint(), OdGePoint3d(-3, 5, 0)));
  rotate->SetParameter(0);
  EXPECT_FALSE(evaluate(rotate.get(), parameter.get()));
}

TEST_F(TransformingActionTest, ScaleFollowsTheLengthRatioAboutItsBase) {
  const OdDbObjectId post = addLine(block, OdGePoint3d(7, 5, 0), OdGePoint3d(7, 9, 0));
  auto linear =
      addParameter<CJbCustBlockLinearParameter>({OdGePoint3d(5, 5, 0), OdGePoint3d(15, 5, 0)});
  auto scale = addAction<CJbCustBlockScaleAction>(linear.get(), {post});
  EXPECT_EQ(scale->GetParameterPointIndex(), 1u);

  ASSERT_TRUE(linear->SetValue(0, length(25)));
  EXPECT_TRUE(evaluate(scale.get(), linear.get()));
  EXPECT_TRUE(SamePoint(line(post)->endPoint(), OdGePoint3d(10, 15, 0)));

  scale->SetBaseOffset(OdGeVector3d(1, 0, 0), false);
  ASSERT_TRUE(linear->SetValue(0, length(50)));
  EXPECT_TRUE(evaluate(scale.get(), linear.get()));
  EXPECT_TRUE(SamePoint(line(post)->endPoint(), OdGePoint3d(14, 25, 0)));

  scale->SetBaseOffset(OdGeVector3d(1, 0, 0), true);
  ASSERT_TRUE(linear->SetValue(0, length(25)));
  EXPECT_TRUE(evaluate(scale.get(), linear.get()));
  EXPECT_TRUE(SamePoint(line(post)->endPoint(), OdGePoint3d(7.5, 12.5, 0)));

  // Down to no length and back: no ratio either way, nothing moves.
  ASSERT_TRUE(linear->SetValue(0, length(0)));
  EXPECT_TRUE(evaluate(scale.get(), linear.get()));
  ASSERT_TRUE(linear->SetValue(0, length(10)));
  EXPECT_TRUE(evaluate(scale.get(), linear.get()));
  EXPECT_TRUE(SamePoint(line(post)->endPoint(), OdGePoint3d(7.5, 12.5, 0)));
  scale->SetParameter(0);
  EXPECT_FALSE(evaluate(scale.get(), linear.get()));
}

TEST_F(TransformingActionTest, ScaleByAnXYParameterTakesTheWholeDiagonal) {
  const OdDbObjectId post = addLine(block, OdGePoint3d(1, 1, 0), OdGePoint3d(1, 2, 0));
  auto xy = addParameter<CJbCustBlockXYParameter>({OdGePoint3d(), OdGePoint3d(3, 4, 0)});
  auto scale = addAction<CJbCustBlockScaleAction>(xy.get(), {post});
  // The X distance alone: the diagonal goes from 5 to the length of (9, 4).
  ASSERT_TRUE(xy->SetValue(CJbCustBlockXYParameter::kXDistanceValue, length(9)));
  EXPECT_TRUE(evaluate(scale.get(), xy.get()));
  const double factor = std::sqrt(97.0) / 5;
  EXPECT_TRUE(SamePoint(line(post)->endPoint(), OdGePoint3d(factor, 2 * factor, 0)));
  ASSERT_TRUE(xy->SetValue(CJbCustBlockXYParameter::kYDistanceValue, length(12)));
  EXPECT_TRUE(evaluate(scale.get(), xy.get()));
  EXPECT_TRUE(SamePoint(line(post)->endPoint(), OdGePoint3d(3, 6, 0)));
}

TEST_F(TransformingActionTest, StretchAfterAMirrorFollowsTheMirroredParameterAndOffset) {
  const OdDbObjectId leaf = addLine(block, OdGePoint3d(0, 0, 0), OdGePoint3d(10, 0, 0));
  auto linear = addParameter<CJbCustBlockLinearParameter>({OdGePoint3d(), OdGePoint3d(10, 0, 0)});
  auto stretch = addAction<CJbCustBlockStretchAction>(linear.get(), {leaf});
  stretch->SetParameterPointIndex(1);
  stretch->SetAngleOffsetAndDistanceMultiplier(1.0, 45 * kDegree, CJbCustBlockAction::kWholeVector);
  stretch->SetSelectionDefinition(0, {OdGePoint3d(8, -2, 0), OdGePoint3d(12, 2, 0)}, true);
  auto flipParameter =
      addParameter<CJbCustBlockFlipParameter>({OdGePoint3d(), OdGePoint3d(0, 10, 0)});
  auto grip = addFlipGrip(flipParameter.get());
  auto flip = addAction<CJbCustBlockFlipAction>(flipParameter.get(), {leaf});
  flip->SetElements(0, {linear->GetElementId(), stretch->GetElementId()});
  graph->Reset(OdDbObjectId::kNull, false);

  clickAndEvaluate(grip.get());
  EXPECT_TRUE(SamePoint(linear->GetCurrentPosition(1), OdGePoint3d(-10, 0, 0)));
  EXPECT_FALSE(linear->NeedEvaluate());

  // Lengthened by 5 along the mirrored line: the mirror image of the unflipped stretch.
  ASSERT_TRUE(linear->SetValue(0, length(15)));
  graph->Evaluate(OdDbObjectId::kNull, false);
  const double side = 5 / std::sqrt(2.0);
  EXPECT_TRUE(SamePoint(line(leaf)->endPoint(), OdGePoint3d(-10 - side, side, 0)));
  EXPECT_TRUE(SamePoint(line(leaf)->startPoint(), OdGePoint3d::kOrigin));
}

TEST_F(TransformingActionTest, GraphFilesEveryFieldInDwgAndDxf) {
  const OdDbObjectId leaf = addLine(block, OdGePoint3d(0, 0, 0), OdGePoint3d(10, 0, 0));
  auto flipParameter =
      addParameter<CJbCustBlockFlipParameter>({OdGePoint3d(1, 2, 0), OdGePoint3d(1, 9, 0)});
  flipParameter->SetFlippedStateName("Left");
  flipParameter->SetNotFlippedStateName("Right");
  addFlipGrip(flipParameter.get());
  addAction<CJbCustBlockFlipAction>(flipParameter.get(), {leaf});
  auto rotation = addParameter<CJbCustBlockRotationParameter>(
      {OdGePoint3d(), OdGePoint3d(2, 0, 0), OdGePoint3d(0, 2, 0)});
  addAction<CJbCustBlockRotateAction>(rotation.get(), {leaf})
      ->SetBaseOffset(OdGeVector3d(1, 2, 0), true);
  auto linear = addParameter<CJbCustBlockLinearParameter>({OdGePoint3d(), OdGePoint3d(4, 0, 0)});
  addAction<CJbCustBlockScaleAction>(linear.get(), {leaf})
      ->SetBaseOffset(OdGeVector3d(0, -3, 0), false);

  const OdArray<int> nodeIds = graph->GetAllNodeIds();
  auto expectSame = [&](const CJbDbCustBlockGraph* read) {
    ASSERT_EQ(read->GetAllNodeIds(), nodeIds);
    auto flipRead = CJbCustBlockFlipParameter::cast(read->GetNode(1).get());
    ASSERT_FALSE(flipRead.isNull());
    EXPECT_EQ(flipRead->GetFlippedStateName(), "Left");
    EXPECT_EQ(flipRead->GetNotFlippedStateName(), "Right");
    EXPECT_TRUE(SamePoint(flipRead->GetDefinedPosition(1), OdGePoint3d(1, 9, 0)));
    EXPECT_EQ(flipRead->GetGrip(0), 2);
    auto flipAction = CJbCustBlockFlipAction::cast(read->GetNode(3).get());
    ASSERT_FALSE(flipAction.isNull());
    EXPECT_EQ(flipAction->GetParameter(), 1);
    ASSERT_EQ(flipAction->GetEntities(0).length(), 1u);
    EXPECT_TRUE(SamePoint(open<OdDbLine>(flipAction->GetEntities(0)[0])->endPoint(),
                          OdGePoint3d(10, 0, 0)));
    OdGeVector3d offset;
    bool independent = false;
    ASSERT_TRUE(
        CJbCustBlockAction::cast(read->GetNode(5).get())->HasBaseOffset(&offset, &independent));
    EXPECT_TRUE(offset.isEqualTo(OdGeVector3d(1, 2, 0)) && independent);
    auto scale = CJbCustBlockScaleAction::cast(read->GetNode(7).get());
    ASSERT_FALSE(scale.isNull());
    ASSERT_TRUE(scale->HasBaseOffset(&offset, &independent));
    EXPECT_TRUE(offset.isEqualTo(OdGeVector3d(0, -3, 0)) && !independent);
    EXPECT_EQ(scale->GetParameterPointIndex(), 1u);
  };

  OdDbMemoryDwgFilerPtr dwg = OdDbMemoryDwgFiler::createObject(db.get(), OdDb::kFileFiler);
  graph->dwgOutFields(dwg.get());
  dwg->seek(0, OdDb::kSeekFromStart);
  CJbDbCustBlockGraphPtr fromDwg = CJbDbCustBlockGraph::createObject();
  ASSERT_EQ(fromDwg->dwgInFields(dwg.get()), eOk);
  expectSame(fromDwg.get());

  open<OdDbDictionary>(db->getNamedObjectsDictionaryId(), OdDb::kForWrite)
      ->setAt("GRAPH", graph.get());
  graph.release();
  const OdDbDatabasePtr read = DxfFile::readFromMemory(DxfFile::writeToMemory(db.get()));
  auto dictionary = open<OdDbDictionary>(read->getNamedObjectsDictionaryId());
  graph = CJbDbCustBlockGraph::cast(dictionary->getAt("GRAPH", OdDb::kForRead).get());
  ASSERT_FALSE(graph.isNull());
  expectSame(graph.get());
}
