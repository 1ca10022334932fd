// Which elements an evaluation runs and in what order: the work list of an instance evaluation
// and the topological-then-priority order of a definition evaluation.
#include "CoreTestSupport.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"

using Journal = std::vector<std::string>;

class GraphEvaluationTest : public CoreTest {
 protected:
  template <class T = RecordingElement>
  OdSmartPtr<T> node(
      CJbCustBlockElement::Priority priority = CJbCustBlockElement::kPriorityNormal) {
    auto element = add<T>(graph.get());
    element->priority = priority;
    return element;
  }
  static void link(const CJbCustBlockElementPtr& from, const CJbCustBlockElementPtr& to) {
    from->AddConnection(to->GetElementId(), false, true);
  }
};

TEST_F(GraphEvaluationTest, NothingRunsWhenNoElementAsks) {
  auto a = node(), b = node();
  link(a, b);
  graph->Evaluate(OdDbObjectId::kNull, true);
  EXPECT_TRUE(hookJournal().empty());
}

TEST_F(GraphEvaluationTest, InstanceEvaluationRunsRequestersThenDownstreamBreadthFirst) {
  auto e1 = node(), e2 = node(), e3 = node();
  // Element 4 was filed with an out-connection to an id that has no node.
  OdSmartPtr<RecordingElement> e4(new RecordingElement);
  fileConnections(e4.get(), {}, {99});
  graph->AppendNode(e4);
  auto e5 = node(), e6 = node();
  ASSERT_EQ(e4->GetElementId(), 4);
  link(e1, e4);
  link(e1, e5);
  link(e4, e2);
  link(e2, e1);  // a cycle back to the start
  link(e6, e1);  // upstream of a requester: never reached
  e1->needEvaluate = true;
  e3->needEvaluate = true;

  graph->Evaluate(OdDbObjectId::kNull, true);
  EXPECT_EQ(hookJournal(), (Journal{"B1", "B3", "B4", "B5", "B2", "E1", "E3", "E4", "E5", "E2",
                                    "N1", "N3", "N4", "N5", "N2"}));
  EXPECT_EQ(e4->modes, (std::vector<int>{4, 4, 4}));

  hookJournal().clear();
  e1->needEvaluate = false;
  e3->needEvaluate = false;
  e2->needEvaluate = true;
  graph->Evaluate(OdDbObjectId::kNull, false);
  EXPECT_EQ(hookJournal(),
            (Journal{"B2", "B1", "B4", "B5", "E2", "E1", "E4", "E5", "N2", "N1", "N4", "N5"}));
  EXPECT_EQ(e2->modes.back(), 0);
}

TEST_F(GraphEvaluationTest, DefinitionOrderIsUpstreamFirstThenByPriority) {
  auto e1 = node();
  auto e2 = node();
  auto e3 = node(CJbCustBlockElement::kPriorityHigh);     // an array
  auto e4 = node(CJbCustBlockElement::kPriorityHighest);  // a base point
  auto e5 = node<TestParameter>();
  auto e6 = node<TestGrip>();
  link(e6, e5);
  link(e5, e2);
  link(e2, e1);
  link(e1, e4);
  link(e1, e3);
  link(e3, e6);  // into a grip: not followed when ordering
  link(e4, e5);  // suppressed by its owner: not followed either
  e4->suppressed.append(e5->GetElementId());

  graph->EvaluateFromBlockDefinition(OdDbObjectId::kNull, false);
  EXPECT_EQ(hookJournal(), (Journal{"B4", "B3", "B6", "B5", "B2", "B1", "E4", "E3", "E6", "E5",
                                    "E2", "E1", "N4", "N3", "N6", "N5", "N2", "N1"}));
  EXPECT_EQ(e1->modes, (std::vector<int>{0, 0, 0}));
}

TEST_F(GraphEvaluationTest, FirstDefinitionRoundLeavesParametersOutOfEvaluate) {
  auto parameter = node<TestParameter>();
  auto action = node();
  auto unrelated = node();
  link(parameter, action);
  parameter->needEvaluate = true;

  graph->EvaluateFromBlockDefinition(OdDbObjectId::kNull, true);
  EXPECT_EQ(hookJournal(), (Journal{"B1", "B2", "E2", "N1", "N2",  // changed part, redefine mode
                                    "B3", "B1", "B2", "E3", "E1", "E2", "N3", "N1", "N2"}));
  EXPECT_EQ(action->modes, (std::vector<int>{3, 3, 3, 1, 1, 1}));
  EXPECT_EQ(unrelated->modes, (std::vector<int>{1, 1, 1}));
}

TEST_F(GraphEvaluationTest, ResetAndCleanupVisitEveryNodeInIdOrder) {
  auto a = node(), b = node(), c = node();
  link(c, a);
  graph->Reset(OdDbObjectId::kNull, true);
  graph->Cleanup();
  EXPECT_EQ(hookJournal(), (Journal{"R1", "R2", "R3", "C1", "C2", "C3"}));
  EXPECT_EQ(b->modes, (std::vector<int>{1}));
}
