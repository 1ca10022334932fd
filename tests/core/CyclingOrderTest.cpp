// The grip cycling order: its default, moves that create the settings element, and the cycling
// points where grips on an alignment grip collapse into one.
#include "CoreTestSupport.h"
#include "core/CJbCustBlockSettingsElement.h"

class CyclingOrderTest : public CoreTest {
 protected:
  template <class T>
  OdSmartPtr<T> grip(double x, double y) {
    auto element = add<T>(graph.get());
    element->position = OdGePoint3d(x, y, 0);
    return element;
  }
};

TEST_F(CyclingOrderTest, MovesReorderAndCreateTheSettingsElementOnce) {
  auto g1 = grip<TestGrip>(0, 0);
  add<NamedLikeAGrip>(graph.get());  // not a grip, whatever its name: never in the order
  auto g3 = grip<TestGrip>(0, 0);
  auto g4 = grip<TestGrip>(0, 0);
  g4->cyclingEnabled = false;
  EXPECT_EQ(graph->GetCyclingOrder(false), OdArray<int>({1, 3, 4}));
  EXPECT_EQ(graph->GetCyclingOrder(true), OdArray<int>({1, 3}));

  graph->MoveCyclingOrder(2, 2);
  graph->MoveCyclingOrder(7, 9);
  EXPECT_EQ(graph->GetAllNodeIds(), OdArray<int>({1, 2, 3, 4}));
  EXPECT_TRUE(graph->CanNodeBeAdded(CJbCustBlockSettingsElement::desc()));
  try {
    graph->MoveCyclingOrder(3, 0);
    FAIL() << "moved a grip from past the end";
  } catch (const OdError& error) {
    EXPECT_EQ(error.code(), eInvalidIndex);
  }

  graph->MoveCyclingOrder(2, 0);
  EXPECT_EQ(graph->GetCyclingOrder(false), OdArray<int>({4, 1, 3}));
  EXPECT_EQ(graph->GetAllNodeIds(), OdArray<int>({1, 2, 3, 4, 5}));
  EXPECT_FALSE(graph->CanNodeBeAdded(CJbCustBlockSettingsElement::desc()));
  graph->MoveCyclingOrder(0, 2);
  EXPECT_EQ(graph->GetCyclingOrder(false), OdArray<int>({1, 3, 4}));
  EXPECT_EQ(graph->GetAllNodeIds().length(), 5u);
}

TEST_F(CyclingOrderTest, GripsOnAnAlignmentGripCollapseWhereTheFirstComes) {
  grip<TestGrip>(0, 0);           // 1
  grip<TestAlignmentGrip>(5, 0);  // 2
  grip<TestGrip>(5, 0);           // 3: stands on 2
  grip<TestGrip>(1, 1);           // 4
  grip<TestGrip>(1, 1);           // 5: equal to 4, but neither is an alignment grip
  grip<TestAlignmentGrip>(5, 0);  // 6: equal to 2, not kept again
  auto off = grip<TestGrip>(5, 0);
  off->cyclingEnabled = false;

  OdArray<int> ids;
  OdArray<OdGePoint3d> points = graph->GetCyclingPoints(&ids);
  EXPECT_EQ(ids, OdArray<int>({1, 2, 4, 5}));
  EXPECT_EQ(points, OdArray<OdGePoint3d>({OdGePoint3d(0, 0, 0), OdGePoint3d(5, 0, 0),
                                          OdGePoint3d(1, 1, 0), OdGePoint3d(1, 1, 0)}));

  // Grip 3 moved to the front: the shared point comes first, with the alignment grip's id.
  graph->MoveCyclingOrder(2, 0);
  ids.append(99);
  points = graph->GetCyclingPoints(&ids);
  EXPECT_EQ(ids, OdArray<int>({2, 1, 4, 5}));
  EXPECT_TRUE(points[0].isEqualTo(OdGePoint3d(5, 0, 0)));
  EXPECT_EQ(graph->GetCyclingPoints(nullptr).length(), 4u);
}
