// The node set of a graph: id allocation with its wrap rule, moving elements between graphs,
// and the rule that unique kinds stay single.
#include <climits>

#include "CoreTestSupport.h"
#include "core/CJbCustBlockProxyElement.h"
#include "core/CJbCustBlockSettingsElement.h"
#include "core/CJbDbCustBlockGraphImpl.h"

using GraphNodeTest = CoreTest;

TEST_F(GraphNodeTest, IdsAscendWithoutReuseAndWrapAtTheTop) {
  auto a = add(graph.get());
  auto b = add(graph.get());
  EXPECT_EQ(a->GetElementId(), 1);
  EXPECT_EQ(b->GetElementId(), 2);
  graph->RemoveNode(2);
  EXPECT_EQ(add(graph.get())->GetElementId(), 3);
  EXPECT_EQ(graph->GetAllNodeIds(), OdArray<int>({1, 3}));

  CJbDbCustBlockGraphImpl impl;
  impl.m_nodes[1].element = a;
  impl.m_lastId = INT_MAX;
  // The wrapped first candidate is used as it stands when free.
  EXPECT_EQ(impl.AllocateId(), INT_MIN);
  impl.m_nodes[INT_MIN].element = b;
  impl.m_lastId = INT_MAX;
  // Taken: the search restarts at 1 and skips what is in use.
  EXPECT_EQ(impl.AllocateId(), 2);
  impl.m_lastId = -1;
  // The null id is never handed out.
  EXPECT_EQ(impl.AllocateId(), 2);
}

TEST_F(GraphNodeTest, AppendingTwiceKeepsTheElementAndMovingRenumbersIt) {
  auto a = add(graph.get());
  auto b = add(graph.get());
  EXPECT_TRUE(graph->AppendNode(a));
  EXPECT_EQ(a->GetElementId(), 1);
  EXPECT_EQ(graph->GetAllNodeIds(), OdArray<int>({1, 2}));
  EXPECT_FALSE(graph->AppendNode(CJbCustBlockElementPtr()));

  CJbDbCustBlockGraphPtr other = CJbDbCustBlockGraph::createObject();
  add(other.get());
  a->AddConnection(b->GetElementId(), false, true);
  ASSERT_TRUE(other->AppendNode(a));
  EXPECT_EQ(a->GetElementId(), 2);
  EXPECT_EQ(graph->GetAllNodeIds(), OdArray<int>({2}));
  EXPECT_EQ(other->GetNode(2).get(), a.get());
  EXPECT_TRUE(connections(b.get(), true, true).isEmpty());
  EXPECT_TRUE(connections(a.get(), true, true).isEmpty());
}

TEST_F(GraphNodeTest, UniqueKindsStaySingleAndEmptinessCountsParametersAndProxies) {
  EXPECT_FALSE(graph->CanNodeBeAdded(nullptr));
  EXPECT_TRUE(graph->CanNodeBeAdded(CJbCustBlockSettingsElement::desc()));
  add<TestGrip>(graph.get());
  add<CJbCustBlockSettingsElement>(graph.get());
  EXPECT_FALSE(graph->CanNodeBeAdded(CJbCustBlockSettingsElement::desc()));
  EXPECT_TRUE(graph->CanNodeBeAdded(RecordingElement::desc()));
  EXPECT_TRUE(graph->IsEmpty());

  add<TestParameter>(graph.get());
  EXPECT_FALSE(graph->IsEmpty());
  graph->RemoveNode(3);
  auto plain = add(graph.get());
  EXPECT_TRUE(graph->IsEmpty());
  graph->AppendNode(CJbCustBlockProxyElement::CreateProxyFromElement(plain.get(), graph.get()));
  EXPECT_FALSE(graph->IsEmpty());
}
