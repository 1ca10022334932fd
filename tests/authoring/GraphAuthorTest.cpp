// Authoring the elements of a graph: grips come bound to their points and drive them, actions
// take only parameters they accept, value sets and lookup rows come out as declared, and a kind
// that does not fit changes nothing.
#include "AuthoringTestSupport.h"
#include "actions/CJbCustBlockFlipAction.h"
#include "actions/CJbCustBlockLookupAction.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "authoring/CJbCustBlockGraphAuthor.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockParameterValueInfo.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"

using Author = CJbCustBlockGraphAuthor;

class GraphAuthorTest : public AuthoringTest {
 protected:
  CJbDbCustBlockGraphPtr graph = CJbDbCustBlockGraph::createObject();
  Author author{graph.get()};
};

TEST_F(GraphAuthorTest, BoundGripsStartAtTheirPointsAndDriveThem) {
  auto width = author.AppendParameter<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
      "Width", {OdGePoint3d(1, 2, 0), OdGePoint3d(11, 2, 0)}, {1});
  EXPECT_EQ(width->GetValueInfo(0)->GetName(), OdString("Width"));
  EXPECT_EQ(width->GetGrip(0), 0);
  const CJbCustBlockGripPtr grip = CJbCustBlockGrip::cast(graph->GetNode(width->GetGrip(1)).get());
  ASSERT_FALSE(grip.isNull());
  EXPECT_TRUE(grip->GetDisplayPosition().isEqualTo(OdGePoint3d(11, 2, 0)));
  EXPECT_TRUE(grip->HasConnection(width->GetElementId(), false, true));

  // Binding a grip that is in the graph already adds no second node.
  const std::size_t nodes = graph->GetAllNodeIds().length();
  author.BindGrip(width.get(), 1, grip.get());
  EXPECT_EQ(graph->GetAllNodeIds().length(), nodes);

  grip->SetDisplayPosition(OdGePoint3d(16, 2, 0));
  graph->Evaluate(OdDbObjectId::kNull, false);
  EXPECT_NEAR(width->GetValue(0)->getDouble(), 15, 1e-9);
}

TEST_F(GraphAuthorTest, ActionsTakeOnlyParametersTheyAcceptAndKindsMustFit) {
  auto width = author.AppendParameter<CJbCustBlockLinearParameter>(
      "", {OdGePoint3d::kOrigin, OdGePoint3d(10, 0, 0)});
  auto stretch = author.AppendAction<CJbCustBlockStretchAction>(width.get(), 1, {});
  EXPECT_EQ(stretch->GetParameter(), width->GetElementId());
  EXPECT_EQ(stretch->GetParameterPointIndex(), 1u);
  EXPECT_TRUE(author.AppendAction(CJbCustBlockStretchAction::desc(), width.get())->IsValid());

  const std::size_t nodes = graph->GetAllNodeIds().length();
  EXPECT_OD_ERROR_NAMING(author.AppendAction<CJbCustBlockFlipAction>(width.get(), 0, {}),
                         eInvalidInput, "JbCustBlockFlipAction", "cannot be driven by");
  EXPECT_OD_ERROR(author.AppendAction(CJbCustBlockLookupAction::desc(), width.get()),
                  eInvalidInput);
  EXPECT_OD_ERROR(author.AppendAction(CJbCustBlockLinearParameter::desc(), width.get()),
                  eNotApplicable);
  EXPECT_OD_ERROR(author.AppendParameter(CJbCustBlockStretchAction::desc()), eNotApplicable);
  EXPECT_EQ(graph->GetAllNodeIds().length(), nodes);

  // Without editing utilities for its kind, a parameter comes without grips.
  const CJbCustBlockParameterPtr bare = author.AppendParameter(
      CJbCustBlockLinearParameter::desc(), "Depth", {OdGePoint3d(0, 5, 0), OdGePoint3d(0, 9, 0)});
  EXPECT_EQ(bare->GetGrip(0), 0);
  EXPECT_EQ(bare->GetValueInfo(0)->GetName(), OdString("Depth"));
  EXPECT_NEAR(bare->GetValue(0)->getDouble(), 4, 1e-9);
  EXPECT_EQ(graph->GetAllNodeIds().length(), nodes + 1);
}

TEST_F(GraphAuthorTest, ValueSetsAndLookupRowsComeOutAsDeclared) {
  auto width = author.AppendParameter<CJbCustBlockLinearParameter>(
      "", {OdGePoint3d::kOrigin, OdGePoint3d(900, 0, 0)});
  Author::SetValueSet(width.get(), 0, {100, 600, 1200});
  const CJbCustBlockParameterValueInfo* set = width->GetValueInfo(0);
  EXPECT_DOUBLE_EQ(set->GetClosestValue(1140, width.get()), 1100);
  EXPECT_DOUBLE_EQ(set->GetClosestValue(5000, width.get()), 1200);
  EXPECT_DOUBLE_EQ(set->GetClosestValue(10, width.get()), 600);
  // A list takes the place of the steps.
  Author::SetValueSet(width.get(), 0, Author::ValueSet(OdArray<double>{700, 950}));
  EXPECT_DOUBLE_EQ(set->GetClosestValue(1140, width.get()), 950);

  OdSmartPtr<CJbCustBlockLookupParameter> size(new CJbCustBlockLookupParameter);
  graph->AppendNode(size);
  size->AddParameterId(width->GetElementId(), 0);
  EXPECT_EQ(
      Author::AddLookupRow(size.get(), "Narrow", {OdResBuf::newRb(OdResBuf::kRtDouble, 700.0)}),
      0u);
  EXPECT_EQ(Author::AddLookupRow(size.get(), "Wide", {OdResBuf::newRb(OdResBuf::kRtDouble, 950.0)}),
            1u);
  EXPECT_EQ(size->GetStateName(1), OdString("Wide"));
  EXPECT_DOUBLE_EQ(size->GetParameterValue(0, 1)->getDouble(), 950);
}
