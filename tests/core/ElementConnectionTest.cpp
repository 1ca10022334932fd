// Connections between elements stay symmetric through every way of adding and removing them.
#include "CoreTestSupport.h"
#include "core/CJbCustBlockElementIdInConnection.h"
#include "core/CJbCustBlockElementIdOutConnection.h"
#include "core/CJbCustBlockProxyElement.h"

using ElementConnectionTest = CoreTest;

TEST_F(ElementConnectionTest, AddAndRemoveUpdateBothPartners) {
  auto a = add(graph.get());
  auto b = add(graph.get());
  auto c = add(graph.get());
  const int ia = a->GetElementId(), ib = b->GetElementId(), ic = c->GetElementId();

  a->AddConnection(ib, false, true);
  a->AddConnection(ic, true, false);
  EXPECT_EQ(connections(a.get(), false, true), OdArray<int>({ib}));
  EXPECT_EQ(connections(b.get(), true, false), OdArray<int>({ia}));
  EXPECT_EQ(connections(a.get(), true, false), OdArray<int>({ic}));
  EXPECT_EQ(connections(c.get(), false, true), OdArray<int>({ia}));
  EXPECT_TRUE(b->HasConnection(ia, true, false));
  EXPECT_FALSE(b->HasConnection(ia, false, true));
  // In-connections come first when both are asked for.
  EXPECT_EQ(connections(a.get(), true, true), OdArray<int>({ic, ib}));

  a->RemoveConnection(ib, false, true);
  EXPECT_TRUE(connections(a.get(), false, true).isEmpty());
  EXPECT_TRUE(connections(b.get(), true, true).isEmpty());
  EXPECT_EQ(connections(c.get(), false, true), OdArray<int>({ia}));
}

TEST_F(ElementConnectionTest, NullUnknownAndDetachedPartnersChangeNothing) {
  auto a = add(graph.get());
  a->AddConnection(0, true, true);
  a->AddConnection(4711, true, true);
  EXPECT_TRUE(connections(a.get(), true, true).isEmpty());

  // An element outside any graph cannot connect.
  OdSmartPtr<RecordingElement> loose(new RecordingElement);
  loose->AddConnection(a->GetElementId(), true, true);
  EXPECT_TRUE(connections(loose.get(), true, true).isEmpty());
  EXPECT_TRUE(connections(a.get(), true, true).isEmpty());
}

TEST_F(ElementConnectionTest, RemovingANodeDropsItFromEveryPartner) {
  auto a = add(graph.get());
  auto b = add(graph.get());
  auto c = add(graph.get());
  const int ib = b->GetElementId();
  a->AddConnection(ib, false, true);
  c->AddConnection(ib, true, true);

  ASSERT_TRUE(graph->RemoveNode(ib));
  EXPECT_FALSE(graph->HasNode(ib));
  EXPECT_TRUE(connections(a.get(), true, true).isEmpty());
  EXPECT_TRUE(connections(c.get(), true, true).isEmpty());
  EXPECT_FALSE(graph->RemoveNode(ib));
  // The removed element no longer belongs to the graph.
  EXPECT_TRUE(b->GetBlockGraph(OdDb::kForRead).isNull());
}

TEST_F(ElementConnectionTest, ConnectionsToMissingPartnersCanStillBeRemoved) {
  auto a = add(graph.get());
  auto b = add(graph.get());
  const int ib = b->GetElementId();
  a->AddConnection(ib, true, true);
  // A copy of `a` in a graph without `b` keeps the connection lists it was filed with.
  CJbDbCustBlockGraphPtr other = CJbDbCustBlockGraph::createObject();
  CJbCustBlockElementPtr copy =
      CJbCustBlockProxyElement::CreateProxyFromElement(a.get(), graph.get())
          ->CreateElement(other.get());
  ASSERT_TRUE(other->AppendNode(copy));
  ASSERT_EQ(connections(copy.get(), true, true), OdArray<int>({ib, ib}));

  copy->RemoveConnection(ib, false, true);
  EXPECT_EQ(connections(copy.get(), true, true), OdArray<int>({ib}));
  EXPECT_TRUE(other->RemoveNode(copy->GetElementId()));
  // The original pair is untouched by what happened to the copy.
  EXPECT_EQ(connections(b.get(), true, true), OdArray<int>({a->GetElementId(), a->GetElementId()}));
}

TEST_F(ElementConnectionTest, ConnectionFieldsFollowTheirAssignedId) {
  auto owner = add(graph.get());
  auto first = add(graph.get());
  auto second = add(graph.get());
  const int io = owner->GetElementId(), i1 = first->GetElementId(), i2 = second->GetElementId();

  CJbCustBlockElementIdInConnection input;
  CJbCustBlockElementIdOutConnection output;
  EXPECT_TRUE(input.IsIncoming());
  EXPECT_FALSE(output.IsIncoming());

  input.Assign(i1, owner.get());
  output.Assign(i2, owner.get());
  EXPECT_EQ(connections(owner.get(), true, false), OdArray<int>({i1}));
  EXPECT_EQ(connections(owner.get(), false, true), OdArray<int>({i2}));
  EXPECT_EQ(connections(first.get(), false, true), OdArray<int>({io}));
  EXPECT_EQ(connections(second.get(), true, false), OdArray<int>({io}));

  // Re-pointing moves the connection; clearing removes it.
  input.Assign(i2, owner.get());
  EXPECT_EQ(input.GetId(), i2);
  EXPECT_TRUE(connections(first.get(), true, true).isEmpty());
  EXPECT_EQ(connections(second.get(), true, true), OdArray<int>({io, io}));
  input.Clear(owner.get());
  output.Clear(owner.get());
  EXPECT_EQ(input.GetId(), 0);
  EXPECT_TRUE(connections(owner.get(), true, true).isEmpty());
  EXPECT_TRUE(connections(second.get(), true, true).isEmpty());

  // Without an owner only the id is stored.
  input.Assign(i1, nullptr);
  EXPECT_EQ(input.GetId(), i1);
  EXPECT_TRUE(connections(first.get(), true, true).isEmpty());
}
