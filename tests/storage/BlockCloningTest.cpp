// Customizable blocks cloned into another drawing or within one: with the deep-clone reactor
// attached, masters arrive with a graph of their own bound to the clone, instance blocks arrive
// registered with their state, every id translated; copies made inside the storage are left alone.
#include <utility>

#include "StorageTestSupport.h"
#include "actions/CJbCustBlockAction.h"
#include "platform/db/cloning/OdRxEvent.h"
#include "storage/CJbCustBlockDeepCloneReactor.h"

class BlockCloningTest : public StorageTest {
 protected:
  void SetUp() override {
    StorageTest::SetUp();
    reactor.Attach();
    door = addDoor("Door");
    reference = addReference(db->getModelSpaceId(), door);
    dragWidth(reference, OdGeVector3d(5, 0, 0));
    instance = blockOf(reference);
  }
  void TearDown() override {
    reactor.Detach();
    StorageTest::TearDown();
  }

  // The ids of the stretch action's current entities in the graph loaded for block.
  OdDbObjectIdArray stretchedEntities(const OdDbObjectId& block, OdDbDatabase* database) {
    CJbDbCustBlockGraphPtr graph;
    EXPECT_TRUE(storage(OdDb::kForRead, database)->GetUpdatedGraph(block, graph));
    for (int id : graph->GetAllNodeIds()) {
      if (CJbCustBlockActionPtr action = CJbCustBlockAction::cast(graph->GetNode(id).get()))
        return action->GetCurrentEntities(0);
    }
    return OdDbObjectIdArray();
  }

  // The entities the stretch action of the block's master graph is defined on.
  OdDbObjectIdArray definedEntities(const OdDbObjectId& block, OdDbDatabase* database) {
    OdDbObjectId graphId;
    EXPECT_TRUE(storage(OdDb::kForRead, database)->GetMasterBlockGraphId(block, graphId));
    CJbDbCustBlockGraphPtr graph = open<CJbDbCustBlockGraph>(graphId);
    for (int id : graph->GetAllNodeIds()) {
      if (CJbCustBlockActionPtr action = CJbCustBlockAction::cast(graph->GetNode(id).get()))
        return action->GetEntities(0);
    }
    return OdDbObjectIdArray();
  }

  // Whether the door's two stretched entities are the given block's own.
  ::testing::AssertionResult twoEntitiesOf(const OdDbObjectIdArray& entities,
                                           const OdDbObjectId& block) {
    if (entities.length() != 2)
      return ::testing::AssertionFailure() << entities.length() << " entities";
    for (const OdDbObjectId& entity : entities) {
      const OdDbObjectId owner = open<OdDbEntity>(entity)->ownerId();
      if (owner != block)
        return ::testing::AssertionFailure() << "an entity of block " << hex(owner);
    }
    return ::testing::AssertionSuccess();
  }

  OdStaticRxObject<CJbCustBlockDeepCloneReactor> reactor;
  OdDbObjectId reference, instance;
};

TEST_F(BlockCloningTest, AReferenceWblockedIntoAnotherDrawingBringsItsMasterAndState) {
  OdDbDatabasePtr target = OdDbDatabase::createObject();
  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  db->wblockCloneObjects({reference}, target->getModelSpaceId(), *mapping, OdDb::kDrcIgnore);
  const OdDbObjectId copiedReference = cloneOf(*mapping, reference);
  const OdDbObjectId copiedInstance = cloneOf(*mapping, instance);
  const OdDbObjectId copiedDoor = cloneOf(*mapping, door);
  ASSERT_FALSE(copiedDoor.isNull());
  EXPECT_EQ(open<OdDbBlockReference>(copiedReference)->blockTableRecord(), copiedInstance);

  CJbDbCustBlockStoragePtr copied = storage(OdDb::kForRead, target.get());
  EXPECT_TRUE(copied->IsBlockMaster(copiedDoor));
  OdDbObjectId master, graphId;
  EXPECT_TRUE(copied->GetMasterBlockId(copiedInstance, master));
  EXPECT_EQ(master, copiedDoor);
  EXPECT_TRUE(copied->GetMasterBlockGraphId(copiedInstance, graphId));
  EXPECT_EQ(graphId.database(), target.get());
  CJbDbCustBlockGraphPtr graph = open<CJbDbCustBlockGraph>(graphId);
  EXPECT_EQ(graph->GetBlockDefinitionId(), copiedDoor);
  EXPECT_EQ(graph->ownerId(), copied->objectId());
  graph.release();
  copied.release();

  // The state names the copied instance's own entities.
  EXPECT_TRUE(twoEntitiesOf(stretchedEntities(copiedInstance, target.get()), copiedInstance));
  // And the copied master's graph is defined on the copied master's entities.
  EXPECT_TRUE(twoEntitiesOf(definedEntities(copiedDoor, target.get()), copiedDoor));

  // Editing in the target changes the target alone.
  std::swap(db, target);
  EXPECT_NEAR(savedWidth(copiedInstance), 15.0, 1e-9);
  dragWidth(copiedReference, OdGeVector3d(5, 0, 0));
  EXPECT_TRUE(SameFrame(frameOf(copiedInstance), DoorFrame(20)));
  EXPECT_TRUE(SameFrame(frameOf(copiedDoor), DoorFrame(10)));
  std::swap(db, target);
  EXPECT_TRUE(SameFrame(frameOf(instance), DoorFrame(15)));
}

TEST_F(BlockCloningTest, AMasterCopiedWithinTheDrawingGetsItsOwnGraph) {
  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  db->deepCloneObjects({door}, db->getBlockTableId(), *mapping);
  const OdDbObjectId copy = cloneOf(*mapping, door);
  ASSERT_FALSE(copy.isNull());
  OdDbObjectId graphOfCopy, graphOfDoor;
  EXPECT_TRUE(storage()->IsBlockMaster(copy));
  EXPECT_TRUE(storage()->GetMasterBlockGraphId(copy, graphOfCopy));
  EXPECT_TRUE(storage()->GetMasterBlockGraphId(door, graphOfDoor));
  EXPECT_NE(graphOfCopy, graphOfDoor);
  EXPECT_EQ(open<CJbDbCustBlockGraph>(graphOfCopy)->GetBlockDefinitionId(), copy);
  EXPECT_TRUE(twoEntitiesOf(stretchedEntities(copy, db.get()), copy));
  EXPECT_TRUE(twoEntitiesOf(definedEntities(copy, db.get()), copy));

  // A reference of the copy is edited like any other; the original's instance stays as it was.
  const OdDbObjectId copyReference = addReference(db->getModelSpaceId(), copy);
  dragWidth(copyReference, OdGeVector3d(10, 0, 0));
  EXPECT_TRUE(SameFrame(frameOf(blockOf(copyReference)), DoorFrame(20)));
  OdDbObjectId master;
  EXPECT_TRUE(storage()->GetMasterBlockId(blockOf(copyReference), master));
  EXPECT_EQ(master, copy);
  EXPECT_TRUE(SameFrame(frameOf(instance), DoorFrame(15)));
  OdArray<OdDbObjectId> instances;
  storage()->GetAllBlockInstancesForMasterBlock(door, instances);
  EXPECT_EQ(instances, OdArray<OdDbObjectId>({instance}));
}

TEST_F(BlockCloningTest, AnInstanceCopiedWithinTheDrawingStaysCustomizableWithItsMasterAndState) {
  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  db->deepCloneObjects({instance}, db->getBlockTableId(), *mapping);
  const OdDbObjectId copy = cloneOf(*mapping, instance);
  ASSERT_FALSE(copy.isNull());
  EXPECT_TRUE(cloneOf(*mapping, door).isNull());
  EXPECT_TRUE(storage()->IsBlockCustomizable(copy));
  EXPECT_FALSE(storage()->IsBlockMaster(copy));
  OdDbObjectId master;
  EXPECT_TRUE(storage()->GetMasterBlockId(copy, master));
  EXPECT_EQ(master, door);
  EXPECT_NEAR(savedWidth(copy), 15.0, 1e-9);
  EXPECT_TRUE(twoEntitiesOf(stretchedEntities(copy, db.get()), copy));

  // A reference of the copy goes on from its state; the original instance keeps its own.
  const OdDbObjectId copyReference = addReference(db->getModelSpaceId(), copy);
  dragWidth(copyReference, OdGeVector3d(5, 0, 0));
  EXPECT_TRUE(SameFrame(frameOf(blockOf(copyReference)), DoorFrame(20)));
  EXPECT_TRUE(SameFrame(frameOf(instance), DoorFrame(15)));
  EXPECT_NEAR(savedWidth(instance), 15.0, 1e-9);
}
