// Copying a customizable definition onto a block that is a master already: every reference keeps
// a block of its own, rebuilt from the new definition with its old state where that still fits,
// and reset (and counted in a message to the user) where it does not.
#include <sstream>

#include "StorageTestSupport.h"
#include "platform/host/CJbSystemServices.h"

class MasterCopyTest : public StorageTest {
 protected:
  void SetUp() override {
    StorageTest::SetUp();
    door = addDoor("Door");
    references = addReferences(3, 2);
    previous = CJbSystemServices::Set(&services);
  }
  void TearDown() override {
    CJbSystemServices::Set(previous);
    StorageTest::TearDown();
  }

  std::ostringstream messages;
  CJbSystemServices services{messages};
  CJbSystemServices* previous = nullptr;
  std::vector<OdDbObjectId> references;
};

TEST_F(MasterCopyTest, RecopyingTheDefinitionKeepsEveryReferenceOnABlockOfItsOwn) {
  const OdDbObjectId oldInstance = blockOf(references[0]);
  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  ASSERT_TRUE(CJbDbCustBlockStorage::CopyMasterBlock(door, door, *mapping, false));
  EXPECT_TRUE(oldInstance.isErased());
  OdArray<OdDbObjectId> instances;
  EXPECT_TRUE(storage()->GetAllBlockInstancesForMasterBlock(door, instances));
  EXPECT_EQ(instances.length(), 3u);
  for (const OdDbObjectId& reference : references) {
    EXPECT_NE(blockOf(reference), door);
    EXPECT_TRUE(instances.contains(blockOf(reference)));
  }
  EXPECT_NEAR(savedWidth(blockOf(references[0])), 15.0, 1e-9);
  EXPECT_NEAR(savedWidth(blockOf(references[1])), 20.0, 1e-9);
  EXPECT_TRUE(SameFrame(frameOf(blockOf(references[2])), DoorFrame(10)));
  EXPECT_EQ(messages.str(), "");
}

TEST_F(MasterCopyTest, StateThatNoLongerFitsIsResetAndCounted) {
  const OdDbObjectId polar = addDoor("PolarDoor", true);
  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  ASSERT_TRUE(CJbDbCustBlockStorage::CopyMasterBlock(polar, door, *mapping, false));
  EXPECT_NE(messages.str().find("Number of reset blocks due to incompatible changes: 3."),
            std::string::npos)
      << messages.str();
  OdDbObjectId graph, polarGraph;
  storage()->GetMasterBlockGraphId(door, graph);
  storage()->GetMasterBlockGraphId(polar, polarGraph);
  EXPECT_NE(graph, polarGraph);
  EXPECT_EQ(open<CJbDbCustBlockGraph>(graph)->GetBlockDefinitionId(), door);
  for (const OdDbObjectId& reference : references) {
    OdDbObjectId master;
    EXPECT_TRUE(storage()->GetMasterBlockId(blockOf(reference), master));
    EXPECT_EQ(master, door);
    EXPECT_TRUE(SameFrame(frameOf(blockOf(reference)), DoorFrame(10)));
  }
}
