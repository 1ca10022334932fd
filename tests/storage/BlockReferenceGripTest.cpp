// Grips of references of customizable blocks: with the grip-points extension attached, a
// reference shows its insertion point and then the shown grips of its graph where its state puts
// them, in the reference's coordinates; dragging one of those edits that reference alone.
#include <cmath>

#include "StorageTestSupport.h"
#include "parameters/CJbCustBlockBasePointParameter.h"
#include "platform/db/OdDbGripPointsPE.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/rx/OdRxClass.h"
#include "storage/CJbBlockInstanceGripPoints.h"

class BlockReferenceGripTest : public StorageTest {
 protected:
  void SetUp() override {
    StorageTest::SetUp();
    door = addDoor("Door");
    reference = addReference(db->getModelSpaceId(), door, OdGePoint3d(100, 50, 0));
    other = addReference(db->getModelSpaceId(), door);
    open<OdDbBlockReference>(reference, OdDb::kForWrite)->setRotation(std::acos(-1.0) / 2);
    OdDbBlockReference::desc()->addX(OdDbGripPointsPE::desc(), &extension);
  }
  void TearDown() override {
    OdDbBlockReference::desc()->delX(OdDbGripPointsPE::desc());
    StorageTest::TearDown();
  }

  OdGePoint3dArray grips(const OdDbObjectId& id) {
    OdGePoint3dArray points;
    EXPECT_EQ(open<OdDbEntity>(id)->getGripPoints(points), eOk);
    return points;
  }

  OdStaticRxObject<CJbBlockInstanceGripPoints> extension;
  OdDbObjectId reference, other;
};

TEST_F(BlockReferenceGripTest, GraphGripsShowWhereTheStateIsAndDragTheReferenceAlone) {
  OdGePoint3dArray points = grips(reference);
  ASSERT_EQ(points.length(), 2u);
  EXPECT_TRUE(points[0].isEqualTo(OdGePoint3d(100, 50, 0)));
  EXPECT_TRUE(points[1].isEqualTo(OdGePoint3d(101, 60, 0)));

  // Seven along the turned reference's width, snapped to the step of 5.
  EXPECT_EQ(
      open<OdDbEntity>(reference, OdDb::kForWrite)->moveGripPointsAt({1}, OdGeVector3d(0, 7, 0)),
      eOk);
  EXPECT_NE(blockOf(reference), door);
  EXPECT_TRUE(SameFrame(frameOf(blockOf(reference)), DoorFrame(15)));
  EXPECT_EQ(blockOf(other), door);
  points = grips(reference);
  ASSERT_EQ(points.length(), 2u);
  EXPECT_TRUE(points[1].isEqualTo(OdGePoint3d(101, 65, 0)));

  // The insertion grip still moves the reference.
  EXPECT_EQ(
      open<OdDbEntity>(reference, OdDb::kForWrite)->moveGripPointsAt({0}, OdGeVector3d(1, 0, 0)),
      eOk);
  EXPECT_TRUE(open<OdDbBlockReference>(reference)->position().isEqualTo(OdGePoint3d(101, 50, 0)));
}

TEST_F(BlockReferenceGripTest, OtherEntitiesAndPlainBlocksKeepTheirOwnGrips) {
  const OdDbObjectId plain = addReference(db->getModelSpaceId(), addBlock("Plain"));
  EXPECT_EQ(grips(plain).length(), 1u);
  OdSmartPtr<OdDbLine> line = OdDbLine::createObject();
  line->setEndPoint(OdGePoint3d(1, 0, 0));
  OdGePoint3dArray points;
  EXPECT_EQ(line->getGripPoints(points), eOk);
  EXPECT_EQ(points.length(), 3u);

  OdDbBlockReference::desc()->delX(OdDbGripPointsPE::desc());
  EXPECT_EQ(grips(reference).length(), 1u);
  OdDbBlockReference::desc()->addX(OdDbGripPointsPE::desc(), &extension);
  EXPECT_EQ(grips(reference).length(), 2u);
}

TEST_F(BlockReferenceGripTest, DragRelocatesABlockWithABasePointWhileTheReferenceIsHeldOpen) {
  // The base point sits off the origin, so every evaluation moves the reference too.
  OdDbObjectId graphId;
  ASSERT_TRUE(storage()->GetMasterBlockGraphId(door, graphId));
  {
    CJbDbCustBlockGraphPtr graph = open<CJbDbCustBlockGraph>(graphId, OdDb::kForWrite);
    OdSmartPtr<CJbCustBlockBasePointParameter> basePoint(new CJbCustBlockBasePointParameter);
    graph->AppendNode(basePoint);
    basePoint->SetDefinedPosition(0, OdGePoint3d(2, 0, 0));
    basePoint->SetRelocationEnabled(true);
    basePoint->Reset(nullptr);
    graph->GetNode(widthParameter)->AddConnection(basePoint->GetElementId(), false, true);
  }
  EXPECT_EQ(
      open<OdDbEntity>(reference, OdDb::kForWrite)->moveGripPointsAt({1}, OdGeVector3d(0, 7, 0)),
      eOk);
  std::vector<OdGePoint2d> frame = DoorFrame(15);
  for (OdGePoint2d& corner : frame)
    corner.x -= 2;
  EXPECT_TRUE(SameFrame(frameOf(blockOf(reference)), frame));
  // The turned reference moved back, so the door's hinge stays where it was.
  EXPECT_TRUE(open<OdDbBlockReference>(reference)->position().isEqualTo(OdGePoint3d(100, 52, 0)));
  EXPECT_EQ(blockOf(other), door);
}
