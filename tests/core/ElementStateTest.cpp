// Visibility and the base instance state of an element.
#include "CoreTestSupport.h"

using ElementStateTest = CoreTest;

TEST_F(ElementStateTest, AlwaysVisibleElementsCannotBeHidden) {
  auto plain = add(graph.get());
  auto pinned = add(graph.get());
  pinned->alwaysVisible = true;
  plain->SetVisible(false);
  pinned->SetVisible(false);
  EXPECT_FALSE(plain->IsVisible());
  EXPECT_TRUE(pinned->IsVisible());
  plain->SetVisible(true);
  EXPECT_TRUE(plain->IsVisible());
}

TEST_F(ElementStateTest, InstanceStateRoundTripsTheVisibleFlagThroughASharedCursor) {
  auto element = add(graph.get());
  element->SetVisible(false);
  OdResBufPtr saved = element->SaveInstance(nullptr);
  ASSERT_FALSE(saved.isNull());
  EXPECT_EQ(saved->restype(), 290);
  EXPECT_TRUE(saved->next().isNull());

  // The element reads its item and leaves the cursor on what follows.
  saved->setNext(OdResBuf::newRb(5010, 7));
  element->SetVisible(true);
  OdResBufPtr cursor = saved;
  EXPECT_TRUE(element->LoadInstance(cursor, nullptr));
  EXPECT_FALSE(element->IsVisible());
  ASSERT_FALSE(cursor.isNull());
  EXPECT_EQ(cursor->getInt32(), 7);

  // An item of another type is refused and not consumed.
  OdResBufPtr before = cursor;
  EXPECT_FALSE(element->LoadInstance(cursor, nullptr));
  EXPECT_EQ(cursor, before);
  OdResBufPtr empty;
  EXPECT_FALSE(element->LoadInstance(empty, nullptr));
}
