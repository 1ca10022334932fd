// The entity index answers what a brute-force walk over every entity's extents answers, in
// drawing order, and follows edits: moved, new and erased entities, boxes without area, and
// entities carried far off the grid.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "platform/db/entities/OdDbPoint.h"
#include "studio/document/EntityIndex.h"
#include "support/DrawingBuilder.h"

class EntityIndexTest : public ::testing::Test {
 protected:
  // What the index should answer: every entity in block order whose extents meet `world`.
  std::vector<OdDbObjectId> expected(const QRectF& world) const {
    std::vector<OdDbObjectId> ids;
    const OdDbBlockTableRecordPtr block(drawing.modelSpace().safeOpenObject());
    for (OdDbObjectIteratorPtr it = block->newIterator(); !it->done(); it->step()) {
      QRectF box;
      if (!EntityIndex::extentsOf(it->entity().get(), box)) continue;
      if (box.left() <= world.right() && world.left() <= box.right() &&
          box.top() <= world.bottom() && world.top() <= box.bottom())
        ids.push_back(it->objectId());
    }
    return ids;
  }

  DrawingBuilder drawing;
  EntityIndex index;
};

TEST_F(EntityIndexTest, AnswersAsAWalkOverEveryEntityWouldInDrawingOrder) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> place(0, 10000);
  std::uniform_real_distribution<double> length(0, 300);
  for (int i = 0; i < 3000; ++i) {
    const OdGePoint3d from(place(random), place(random), 0);
    drawing.line(from, from + OdGeVector3d(length(random), length(random) - 150, 0));
  }
  // One line across the whole drawing, listed for every answer.
  drawing.line({-5000, 5000, 0}, {15000, 5000, 0});
  index.build(drawing.modelSpace());
  EXPECT_EQ(index.size(), 3001u);
  for (int i = 0; i < 50; ++i) {
    const QPointF corner(place(random) - 500, place(random) - 500);
    const QRectF world(corner, QSizeF(length(random) * 5, length(random) * 3));
    ASSERT_EQ(index.query(world), expected(world)) << i;
  }
  EXPECT_EQ(index.query(QRectF(-1e6, -1e6, 2e6, 2e6)).size(), 3001u);
  EXPECT_TRUE(index.query(QRectF(20000, 20000, 10, 10)).empty());
  // Inside a window: wholly inside only.
  const OdDbObjectId added = drawing.line({100, 100, 0}, {200, 150, 0});
  index.update(added);
  const auto holds = [&](const QRectF& world) {
    const std::vector<OdDbObjectId> ids = index.inside(world);
    return std::find(ids.begin(), ids.end(), added) != ids.end();
  };
  EXPECT_TRUE(holds(QRectF(90, 90, 120, 70)));
  EXPECT_FALSE(holds(QRectF(90, 90, 100, 70)));  // its end sticks out
}

TEST_F(EntityIndexTest, FollowsMovedNewErasedAndFarCarriedEntities) {
  const OdDbObjectId first = drawing.line({0, 0, 0}, {10, 0, 0});
  drawing.line({100, 100, 0}, {110, 110, 0});
  index.build(drawing.modelSpace());
  QRectF extents;
  ASSERT_TRUE(index.extents(extents));
  EXPECT_EQ(extents, QRectF(0, 0, 110, 110));

  // A point has a box without area, and is found.
  OdDbPointPtr point = OdDbPoint::createObject();
  point->setPosition({50, 50, 0});
  const OdDbObjectId pointId = drawing.add(point);
  index.update(pointId);
  EXPECT_EQ(index.query(QRectF(49, 49, 2, 2)), std::vector<OdDbObjectId>({pointId}));

  // Moved: found at the new place only; and carried far off the grid, still found there.
  drawing.open<OdDbLine>(first)->setEndPoint({60, 50, 0});
  index.update(first);
  EXPECT_EQ(index.query(QRectF(49, 49, 2, 2)), std::vector<OdDbObjectId>({first, pointId}));
  drawing.open<OdDbLine>(first)->setStartPoint({90000, 0, 0});
  drawing.open<OdDbLine>(first)->setEndPoint({90010, 0, 0});
  index.update(first);
  EXPECT_EQ(index.query(QRectF(89990, -5, 30, 10)), std::vector<OdDbObjectId>({first}));
  EXPECT_EQ(index.query(QRectF(49, 49, 2, 2)), std::vector<OdDbObjectId>({pointId}));

  ASSERT_EQ(drawing.open<OdDbEntity>(pointId)->erase(), eOk);
  index.update(pointId);
  EXPECT_TRUE(index.query(QRectF(49, 49, 2, 2)).empty());
  EXPECT_EQ(index.size(), 2u);
  QRectF box;
  EXPECT_FALSE(index.extentsOf(pointId, box));
}
