// The lookup action: a chosen row of a window's size table goes into its width and height, the
// stretch actions of both reshape the frame, value sets still snap, a row that cannot go in whole
// changes nothing, and the reference's state brings the chosen row back.
#include <cmath>
#include <limits>

#include "ActionTestSupport.h"
#include "actions/CJbCustBlockLookupAction.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockLookupParameter.h"
#include "parameters/CJbCustBlockParameterValueInfo.h"

namespace {
// A length whose value turns into a point on request, as a table filed for another block sees it.
class ReshapedParameter : public CJbCustBlockLinearParameter {
 public:
  OdResBufPtr GetValue(unsigned index) const override {
    if (givesPoint) return OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d::kOrigin);
    return CJbCustBlockLinearParameter::GetValue(index);
  }
  bool givesPoint = false;
};

OdResBufPtr real(double value) {
  return OdResBuf::newRb(OdResBuf::kRtDouble, value);
}
}  // namespace

class LookupActionTest : public ActionTest {
 protected:
  // A 600 x 900 window frame; width and height stretch its right and top sides.
  void SetUp() override {
    ActionTest::SetUp();
    block = addBlock("Window");
    bottom = addLine(block, OdGePoint3d(0, 0, 0), OdGePoint3d(600, 0, 0));
    right = addLine(block, OdGePoint3d(600, 0, 0), OdGePoint3d(600, 900, 0));
    top = addLine(block, OdGePoint3d(600, 900, 0), OdGePoint3d(0, 900, 0));
    left = addLine(block, OdGePoint3d(0, 900, 0), OdGePoint3d(0, 0, 0));
    width = linear<CJbCustBlockLinearParameter>(OdGePoint3d(600, 0, 0), {bottom, right, top},
                                                OdGePoint3d(550, -50, 0), OdGePoint3d(650, 950, 0));
    height = linear<ReshapedParameter>(OdGePoint3d(0, 900, 0), {right, top, left},
                                       OdGePoint3d(-50, 850, 0), OdGePoint3d(650, 950, 0));
    lookup = new CJbCustBlockLookupParameter;
    graph->AppendNode(lookup);
    lookup->AddParameterId(width->GetElementId(), 0);
    lookup->AddParameterId(height->GetElementId(), 0);
    addRow("600x900", 600, 900);
    addRow("900x1200", 900, 1200);
    // Attached after the table, as the editor does.
    action = new CJbCustBlockLookupAction;
    graph->AppendNode(action);
    action->SetParameter(lookup->GetElementId());
  }

  template <class T>
  OdSmartPtr<T> linear(const OdGePoint3d& end, const OdArray<OdDbObjectId>& sides,
                       const OdGePoint3d& low, const OdGePoint3d& high) {
    OdSmartPtr<T> parameter(new T);
    graph->AppendNode(parameter);
    parameter->SetDefinedPosition(1, end);
    CJbCustBlockStretchActionPtr stretch(new CJbCustBlockStretchAction);
    graph->AppendNode(stretch);
    stretch->SetParameter(parameter->GetElementId());
    stretch->SetParameterPointIndex(1);
    stretch->SetEntities(0, sides);
    stretch->SetSelectionDefinition(0, {low, high}, true);
    return parameter;
  }
  void addRow(const char* name, double w, double h) {
    const unsigned row = lookup->AddState();
    lookup->SetStateName(row, name);
    lookup->SetParameterValue(0, row, real(w));
    lookup->SetParameterValue(1, row, real(h));
  }
  bool choose(int row) { return lookup->SetValue(0, OdResBuf::newRb(OdResBuf::kRtInt32, row)); }
  bool evaluateAction(int mode = 0) {
    CJbDbCustBlockGraphEvaluationContextPtr context(
        new CJbDbCustBlockGraphEvaluationContext(mode, OdDbObjectId::kNull));
    return action->Evaluate(context.get());
  }
  double length(const CJbCustBlockParameter* parameter) const {
    return parameter->GetValue(0)->getDouble();
  }
  bool sizeIs(double w, double h) {
    return std::fabs(length(width.get()) - w) < 1e-9 && std::fabs(length(height.get()) - h) < 1e-9;
  }

  OdDbObjectId block, bottom, right, top, left;
  CJbCustBlockLinearParameterPtr width;
  OdSmartPtr<ReshapedParameter> height;
  CJbCustBlockLookupParameterPtr lookup;
  CJbCustBlockLookupActionPtr action;
};

TEST_F(LookupActionTest, AChosenRowSetsWidthAndHeightAndTheFrameFollows) {
  EXPECT_EQ(lookup->GetCurrentStateName(), "600x900");
  ASSERT_TRUE(choose(1));
  graph->Evaluate(OdDbObjectId::kNull, false);
  EXPECT_TRUE(sizeIs(900, 1200));
  EXPECT_EQ(lookup->GetCurrentStateName(), "900x1200");
  EXPECT_TRUE(SamePoint(line(right)->endPoint(), OdGePoint3d(900, 1200, 0)));
  EXPECT_TRUE(SamePoint(line(top)->endPoint(), OdGePoint3d(0, 1200, 0)));

  // Cells go through the width's value set: 1050 is not allowed, so the nearest allowed is taken
  // and the reference no longer shows a row.
  width->GetValueInfoForModify(0)->SetList({600.0, 900.0, 1100.0}, width.get());
  addRow("1050x900", 1050, 900);
  ASSERT_TRUE(choose(2));
  graph->Evaluate(OdDbObjectId::kNull, false);
  EXPECT_TRUE(sizeIs(1100, 900));
  EXPECT_EQ(lookup->GetCurrentStateName(), "Custom");
}

TEST_F(LookupActionTest, ARowThatCannotGoInWholeChangesNoParameter) {
  // Nothing chosen and nothing matching.
  width->SetUpdatedPosition(1, OdGePoint3d(700, 0, 0));
  EXPECT_EQ(lookup->GetUpdatedState(), -1);
  EXPECT_FALSE(evaluateAction());
  width->SetUpdatedPosition(1, OdGePoint3d(600, 0, 0));

  // A parameter refusing its cell after the width has taken its own.
  addRow("900xNaN", 900, std::numeric_limits<double>::quiet_NaN());
  ASSERT_TRUE(choose(2));
  EXPECT_FALSE(evaluateAction());
  EXPECT_TRUE(SamePoint(width->GetUpdatedPosition(1), OdGePoint3d(600, 0, 0)));

  // An empty cell, and a cell of another kind than the value it feeds.
  lookup->SetParameterValue(1, 2, OdResBufPtr());
  EXPECT_FALSE(evaluateAction());
  ASSERT_TRUE(choose(1));
  height->givesPoint = true;
  EXPECT_FALSE(evaluateAction());
  height->givesPoint = false;
  EXPECT_TRUE(sizeIs(600, 900));

  // A column whose parameter was deleted.
  graph->RemoveNode(height->GetElementId());
  EXPECT_FALSE(evaluateAction());
  EXPECT_DOUBLE_EQ(length(width.get()), 600);

  // Right after a redefinition nothing is written at all.
  lookup->RemoveParameterId(height->GetElementId(), 0);
  EXPECT_TRUE(evaluateAction(CJbDbCustBlockGraphEvaluationContext::kAfterBlockRedefine));
  EXPECT_DOUBLE_EQ(length(width.get()), 600);
  EXPECT_TRUE(evaluateAction());
  EXPECT_DOUBLE_EQ(length(width.get()), 900);
}

TEST_F(LookupActionTest, TheInstanceStateKeepsTheChosenRow) {
  ASSERT_TRUE(choose(1));
  graph->Evaluate(OdDbObjectId::kNull, false);
  CJbDbCustBlockGraphInstanceContextPtr context(
      new CJbDbCustBlockGraphInstanceContext(0, db.get()));
  const OdResBufPtr state = graph->SaveInstance(context.get());
  graph->Reset(OdDbObjectId::kNull, true);
  EXPECT_TRUE(sizeIs(600, 900));
  ASSERT_TRUE(graph->LoadInstance(state, context.get()));
  EXPECT_TRUE(sizeIs(900, 1200));
  EXPECT_EQ(lookup->GetCurrentState(), 1);
}
