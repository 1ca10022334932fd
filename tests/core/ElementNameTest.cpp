// Element names are unique within a graph: generated with the lowest free counter, validated
// against every other node, and repaired when an element joins a graph.
#include "CoreTestSupport.h"

using ElementNameTest = CoreTest;

TEST_F(ElementNameTest, GeneratedNamesTakeTheLowestFreeCounter) {
  auto first = add(graph.get());
  auto second = add(graph.get());
  auto third = add(graph.get());
  EXPECT_EQ(first->GetName(), "Element1");
  EXPECT_EQ(second->GetName(), "Element2");
  EXPECT_EQ(third->GetName(), "Element3");

  // A gap is filled before the series grows.
  ASSERT_TRUE(graph->RemoveNode(second->GetElementId()));
  OdSmartPtr<RecordingElement> fresh(new RecordingElement);
  EXPECT_EQ(fresh->GenerateName(graph.get()), "Element2");
  EXPECT_TRUE(fresh->GenerateName(static_cast<const CJbDbCustBlockGraph*>(nullptr)).isEmpty());
}

TEST_F(ElementNameTest, ValidationComparesWithOtherNodesOnly) {
  auto first = add(graph.get());
  auto second = add(graph.get());
  EXPECT_TRUE(CJbCustBlockElement::ValidateName("Element1", graph.get(), first.get()));
  EXPECT_FALSE(CJbCustBlockElement::ValidateName("Element1", graph.get(), second.get()));
  EXPECT_FALSE(CJbCustBlockElement::ValidateName("Element1", graph.get(), nullptr));
  EXPECT_TRUE(CJbCustBlockElement::ValidateName("Other", graph.get(), nullptr));
  EXPECT_FALSE(CJbCustBlockElement::ValidateName("", graph.get(), first.get()));
  EXPECT_FALSE(
      CJbCustBlockElement::ValidateName("", static_cast<CJbDbCustBlockGraph*>(nullptr), nullptr));
  EXPECT_TRUE(CJbCustBlockElement::ValidateName(
      "Element1", static_cast<CJbDbCustBlockGraph*>(nullptr), nullptr));
}

TEST_F(ElementNameTest, AppendingKeepsAUniqueNameAndRenamesADuplicate) {
  OdSmartPtr<RecordingElement> named(new RecordingElement);
  named->SetName("Door");
  graph->AppendNode(named);
  EXPECT_EQ(named->GetName(), "Door");

  OdSmartPtr<RecordingElement> clash(new RecordingElement);
  clash->SetName("Door");
  graph->AppendNode(clash);
  EXPECT_EQ(clash->GetName(), "Element1");
  EXPECT_EQ(named->GetName(), "Door");
}
