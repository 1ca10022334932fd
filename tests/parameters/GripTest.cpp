// Grips: the nine kinds and their fixed properties, the authored and instance fields, drags,
// requested states, instance state, filing and their place in the graph's cycling order.
#include <functional>

#include "ParameterTestSupport.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "parameters/CJbCustBlockStateParameter.h"
#include "parameters/grips/CJbCustBlockAlignmentGrip.h"
#include "parameters/grips/CJbCustBlockBaseGrip.h"
#include "parameters/grips/CJbCustBlockFlipGrip.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"
#include "parameters/grips/CJbCustBlockLookupGrip.h"
#include "parameters/grips/CJbCustBlockPolarGrip.h"
#include "parameters/grips/CJbCustBlockRotationGrip.h"
#include "parameters/grips/CJbCustBlockVisibilityGrip.h"
#include "parameters/grips/CJbCustBlockXYGrip.h"
#include "platform/rx/OdRxClass.h"

struct GripKind {
  const char* registeredName;
  std::function<CJbCustBlockGripPtr()> create;
  CJbCustBlockGrip::GripType type;
  const char* baseName;
  bool fixed;
  bool alwaysVisible;
};

template <class T>
CJbCustBlockGripPtr make() {
  return CJbCustBlockGripPtr(T::createObject());
}

class GripKindTest : public ParameterTest, public ::testing::WithParamInterface<GripKind> {};

TEST_P(GripKindTest, KindPropertiesAndTheBasePositionRules) {
  const GripKind& kind = GetParam();
  CJbCustBlockGripPtr grip = kind.create();
  ASSERT_FALSE(grip.isNull());
  EXPECT_EQ(grip->isA()->name(), kind.registeredName);
  EXPECT_EQ(grip->GetType(), kind.type);
  EXPECT_EQ(grip->GetBaseName(), kind.baseName);
  EXPECT_EQ(grip->IsFixed(), kind.fixed);
  EXPECT_EQ(grip->IsAlwaysVisible(), kind.alwaysVisible);
  EXPECT_TRUE(grip->IsInsertionPointCyclingEnabled());

  graph->AppendNode(grip);
  EXPECT_EQ(grip->GetName(), OdString(kind.baseName) + "1");
  // Not bound to a parameter point: never visible.
  grip->SetVisible(true);
  EXPECT_FALSE(grip->IsVisible());
  EXPECT_EQ(grip->GetParameter(nullptr), 0);

  grip->SetDefindedPosition(OdGePoint3d(2, 3, 0));
  grip->SetDefinitionOffset(OdGeVector3d(0, 1, 0));
  grip->SetDefinitionDirection(OdGeVector3d(1, 0, 0));
  grip->SetDisplayPosition(OdGePoint3d(5, 5, 0));
  EXPECT_TRUE(SamePoint(OdGePoint3d::kOrigin + grip->GetOffset(), OdGePoint3d(3, 1, 0)));
  CJbDbCustBlockGraphEvaluationContext context(0, OdDbObjectId::kNull);
  EXPECT_TRUE(grip->EndEvaluate(&context));
  EXPECT_TRUE(SamePoint(grip->GetCurrentPosition(), OdGePoint3d(5, 4, 0)));
  grip->SetCurrentOffset(OdGeVector3d(7, 7, 0));
  EXPECT_TRUE(grip->Reset(&context));
  EXPECT_TRUE(SamePoint(grip->GetDisplayPosition(), OdGePoint3d(2, 4, 0)));
  EXPECT_TRUE(grip->GetCurrentDirection().isEqualTo(OdGeVector3d(1, 0, 0)));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, GripKindTest,
    ::testing::Values(GripKind{"JbCustBlockBaseGrip", make<CJbCustBlockBaseGrip>,
                               CJbCustBlockGrip::kPointGrip, "BaseGrip", false, false},
                      GripKind{"JbCustBlockPolarGrip", make<CJbCustBlockPolarGrip>,
                               CJbCustBlockGrip::kPointGrip, "BaseGrip", false, false},
                      GripKind{"JbCustBlockXYGrip", make<CJbCustBlockXYGrip>,
                               CJbCustBlockGrip::kPointGrip, "XYGrip", false, false},
                      GripKind{"JbCustBlockLinearGrip", make<CJbCustBlockLinearGrip>,
                               CJbCustBlockGrip::kLinearGrip, "LinearGrip", false, false},
                      GripKind{"JbCustBlockRotationGrip", make<CJbCustBlockRotationGrip>,
                               CJbCustBlockGrip::kRotationGrip, "RotationGrip", false, false},
                      GripKind{"JbCustBlockAlignmentGrip", make<CJbCustBlockAlignmentGrip>,
                               CJbCustBlockGrip::kAlignmentGrip, "AlignmentGrip", true, false},
                      GripKind{"JbCustBlockFlipGrip", make<CJbCustBlockFlipGrip>,
                               CJbCustBlockGrip::kFlipGrip, "MirrorGrip", false, false},
                      GripKind{"JbCustBlockLookupGrip", make<CJbCustBlockLookupGrip>,
                               CJbCustBlockGrip::kStateGrip, "TableGrip", false, false},
                      GripKind{"JbCustBlockVisibilityGrip", make<CJbCustBlockVisibilityGrip>,
                               CJbCustBlockGrip::kStateGrip, "VisibilityGrip", false, true}),
    [](const ::testing::TestParamInfo<GripKind>& info) {
      return OdString(info.param.registeredName).mid(11).str();
    });

using GripTest = ParameterTest;

TEST_F(GripTest, PolarGripsNumberInTheBaseGripSeries) {
  auto base = add<CJbCustBlockBaseGrip>();
  auto polar = add<CJbCustBlockPolarGrip>();
  EXPECT_EQ(base->GetName(), "BaseGrip1");
  EXPECT_EQ(polar->GetName(), "BaseGrip2");
}

TEST_F(GripTest, WhatAsksForEvaluationDependsOnTheKind) {
  auto point = add<CJbCustBlockLinearGrip>();
  point->SetUpdatedPosition(OdGePoint3d(5e-11, 0, 0));
  EXPECT_FALSE(point->NeedEvaluate());
  point->SetUpdatedPosition(OdGePoint3d(1e-6, 0, 0));
  EXPECT_TRUE(point->NeedEvaluate());

  auto flip = add<CJbCustBlockFlipGrip>();
  flip->SetUpdatedPosition(OdGePoint3d(1, 0, 0));
  EXPECT_FALSE(flip->NeedEvaluate());
  flip->SetFlipped(true);
  EXPECT_TRUE(flip->NeedEvaluate());

  auto lookup = add<CJbCustBlockLookupGrip>();
  EXPECT_FALSE(lookup->NeedEvaluate());
  lookup->SetState(2);
  EXPECT_TRUE(lookup->NeedEvaluate());
  EXPECT_EQ(lookup->GetState(), 2);
  lookup->ResetState();
  EXPECT_FALSE(lookup->NeedEvaluate());
  EXPECT_EQ(lookup->GetState(), 0);

  auto visibility = add<CJbCustBlockVisibilityGrip>();
  visibility->SetState(3u);
  EXPECT_FALSE(visibility->NeedEvaluate());
  EXPECT_EQ(visibility->GetState(), 3u);
}

namespace {
class StateParameter : public TestLengthParameter, public CJbCustBlockStateParameter {
 public:
  int GetUpdatedState() const override { return 4; }
};
}  // namespace

TEST_F(GripTest, WithoutARequestAStateGripReportsItsParametersState) {
  OdSmartPtr<StateParameter> parameter(new StateParameter);
  graph->AppendNode(parameter);
  auto alignment = add<CJbCustBlockAlignmentGrip>();
  auto plain = add<CJbCustBlockLookupGrip>();
  bind(parameter.get(), 1, alignment.get());
  bind(add<TestLengthParameter>().get(), 0, plain.get());
  EXPECT_EQ(alignment->GetState(), 4);
  EXPECT_EQ(plain->GetState(), 0);
  alignment->SetState(-1);
  EXPECT_EQ(alignment->GetState(), -1);
}

TEST_F(GripTest, InstanceStateIsOffsetDirectionAndPosition) {
  auto grip = add<CJbCustBlockBaseGrip>();
  grip->SetCurrentOffset(OdGeVector3d(1, 0, 0));
  grip->SetCurrentDirection(OdGeVector3d(0, 1, 0));
  grip->SetCurrentPosition(OdGePoint3d(4, 4, 0));
  grip->SetVisible(false);
  OdResBufPtr chain = grip->SaveInstance(nullptr);
  std::vector<int> types;
  for (OdResBufPtr item = chain; !item.isNull(); item = item->next())
    types.push_back(item->restype());
  EXPECT_EQ(types, (std::vector<int>{290, 5009, 5009, 5009}));

  auto other = add<CJbCustBlockBaseGrip>();
  OdResBufPtr cursor = chain;
  EXPECT_TRUE(other->LoadInstance(cursor, nullptr));
  EXPECT_TRUE(cursor.isNull());
  EXPECT_TRUE(SamePoint(other->GetDisplayPosition(), OdGePoint3d(5, 4, 0)));
  EXPECT_TRUE(SamePoint(other->GetUpdatedPosition(), OdGePoint3d(4, 4, 0)));
  EXPECT_TRUE(other->GetCurrentDirection().isEqualTo(OdGeVector3d(0, 1, 0)));

  // A missing position fails after loading what came before.
  chain->next()->next()->setNext(OdResBufPtr());
  other->SetCurrentDirection(OdGeVector3d::kZAxis);
  cursor = chain;
  EXPECT_FALSE(other->LoadInstance(cursor, nullptr));
  EXPECT_TRUE(other->GetCurrentDirection().isEqualTo(OdGeVector3d(0, 1, 0)));
}

TEST_F(GripTest, DwgFieldsRoundTripAndAuthoredSettersOpenOnlyOnChange) {
  auto grip = add<CJbCustBlockRotationGrip>();
  grip->SetDefindedPosition(OdGePoint3d(1, 2, 3));
  grip->SetDefinitionOffset(OdGeVector3d(0, 0, 1));
  grip->SetDefinitionDirection(OdGeVector3d(1, 1, 0));
  grip->SetInsertionPointCyclingEnabled(false);
  auto copy = add<CJbCustBlockRotationGrip>();
  ASSERT_EQ(ElementFilingRoundTrip::Copy(grip.get(), copy.get(), graph.get()), eOk);
  EXPECT_TRUE(SamePoint(copy->GetDefindedPosition(), OdGePoint3d(1, 2, 3)));
  EXPECT_TRUE(SamePoint(copy->GetDisplayPosition(), OdGePoint3d(1, 2, 4)));
  EXPECT_TRUE(copy->GetCurrentDirection().isEqualTo(OdGeVector3d(1, 1, 0)));
  EXPECT_FALSE(copy->IsInsertionPointCyclingEnabled());
  // The graph knows grips by their registered class and asks them about cycling.
  auto enabled = add<CJbCustBlockBaseGrip>();
  EXPECT_EQ(graph->GetCyclingOrder(false).length(), 3u);
  EXPECT_EQ(graph->GetCyclingOrder(true), OdArray<int>{enabled->GetElementId()});

  OdDbDatabasePtr database = OdDbDatabase::createObject();
  const OdDbObjectId graphId = database->addOdDbObject(graph.get());
  graph.release();
  CJbDbCustBlockGraphPtr reading = CJbDbCustBlockGraph::cast(graphId.openObject().get());
  EXPECT_NO_THROW(grip->SetDefindedPosition(OdGePoint3d(1, 2, 3 + 5e-11)));
  EXPECT_NO_THROW(grip->SetInsertionPointCyclingEnabled(false));
  EXPECT_NO_THROW(grip->SetDisplayPosition(OdGePoint3d(9, 9, 9)));
  EXPECT_THROW(grip->SetDefindedPosition(OdGePoint3d(1, 2, 4)), OdError);
}
