// Editing one reference of a customizable block: a shared block is copied into a new anonymous
// block for that reference alone, a reference alone on its block is edited in place, the value
// follows the parameter's steps, and the master and the other references keep their shape.
#include "StorageTestSupport.h"
#include "platform/db/OdDbDictionary.h"
#include "storage/CJbCustBlockEditorHelper.h"

class ReferenceEditingTest : public StorageTest, public ::testing::WithParamInterface<bool> {
 protected:
  void SetUp() override {
    StorageTest::SetUp();
    door = addDoor("Door", GetParam());
    references = addReferences(3, 0);
  }

  std::vector<OdDbObjectId> references;
};

TEST_P(ReferenceEditingTest, OnlyTheEditedReferenceGetsItsOwnSnappedCopy) {
  dragWidth(references[0], OdGeVector3d(7, 0, 0));  // 17, snapped to 15
  const OdDbObjectId instance = blockOf(references[0]);
  ASSERT_NE(instance, door);
  EXPECT_TRUE(open<OdDbBlockTableRecord>(instance)->getName().startsWith("*U"));
  EXPECT_TRUE(SameFrame(frameOf(instance), DoorFrame(15)));
  EXPECT_NEAR(savedWidth(instance), 15.0, 1e-9);
  EXPECT_TRUE(SameFrame(frameOf(door), DoorFrame(10)));
  EXPECT_EQ(blockOf(references[1]), door);
  EXPECT_EQ(blockOf(references[2]), door);

  OdDbObjectId master;
  EXPECT_TRUE(storage()->GetMasterBlockId(instance, master));
  EXPECT_EQ(master, door);
  EXPECT_FALSE(storage()->IsBlockMaster(instance));
  EXPECT_FALSE(storage()->IsNewBlockInstanceRequired(instance));
  // The copy keeps the block it came from from being purged.
  OdDbDictionaryPtr extension =
      open<OdDbDictionary>(open<OdDbBlockTableRecord>(instance)->extensionDictionary());
  OdDbXrecordPtr preventor =
      OdDbXrecord::cast(extension->getAt("JbPurgePreventor", OdDb::kForRead).get());
  ASSERT_FALSE(preventor.isNull());
  EXPECT_EQ(tagTexts(preventor->rbChain().get()), std::vector<std::string>{"340 " + hex(door)});

  // Alone on its block, the reference is edited in place.
  const std::size_t blocks = open<OdDbBlockTable>(db->getBlockTableId())->recordIds().length();
  dragWidth(references[0], OdGeVector3d(5, 0, 0));
  EXPECT_EQ(blockOf(references[0]), instance);
  EXPECT_TRUE(SameFrame(frameOf(instance), DoorFrame(20)));
  EXPECT_EQ(open<OdDbBlockTable>(db->getBlockTableId())->recordIds().length(), blocks);
}

TEST_P(ReferenceEditingTest, ACopiedReferenceSharesItsBlockUntilEdited) {
  dragWidth(references[0], OdGeVector3d(10, 0, 0));
  const OdDbObjectId instance = blockOf(references[0]);
  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  db->deepCloneObjects({references[0]}, db->getModelSpaceId(), *mapping);
  const OdDbObjectId copy = cloneOf(*mapping, references[0]);
  ASSERT_EQ(blockOf(copy), instance);
  EXPECT_TRUE(storage()->IsNewBlockInstanceRequired(instance));

  dragWidth(copy, OdGeVector3d(-5, 0, 0));
  const OdDbObjectId second = blockOf(copy);
  EXPECT_NE(second, instance);
  EXPECT_NE(second, door);
  EXPECT_TRUE(SameFrame(frameOf(second), DoorFrame(15)));
  EXPECT_NEAR(savedWidth(second), 15.0, 1e-9);
  EXPECT_EQ(blockOf(references[0]), instance);
  EXPECT_TRUE(SameFrame(frameOf(instance), DoorFrame(20)));
  EXPECT_TRUE(SameFrame(frameOf(door), DoorFrame(10)));
  OdArray<OdDbObjectId> instances;
  EXPECT_TRUE(storage()->GetAllBlockInstancesForMasterBlock(door, instances));
  EXPECT_EQ(instances.length(), 2u);
}

TEST_P(ReferenceEditingTest, ReadRequestsAndUncommittedEditsChangeNothing) {
  {
    CJbCustBlockEditorHelper helper(references[1]);
    EXPECT_FALSE(helper.GetGraph(OdDb::kForRead).isNull());
    EXPECT_FALSE(helper.Commit());
  }
  EXPECT_EQ(blockOf(references[1]), door);
  // A write request copies once, however often it is repeated.
  CJbCustBlockEditorHelper helper(references[1]);
  CJbDbCustBlockGraphPtr first = helper.GetGraph(OdDb::kForWrite);
  const OdDbObjectId copied = helper.GetBlockId();
  EXPECT_EQ(helper.GetGraph(OdDb::kForWrite), first);
  EXPECT_EQ(helper.GetBlockId(), copied);
  EXPECT_EQ(blockOf(references[1]), copied);

  // A plain block is no customizable block.
  const OdDbObjectId plain = addBlock("Plain");
  CJbCustBlockEditorHelper none(addReference(db->getModelSpaceId(), plain));
  EXPECT_TRUE(none.GetGraph(OdDb::kForWrite).isNull());
}

INSTANTIATE_TEST_SUITE_P(LinearAndPolar, ReferenceEditingTest, ::testing::Bool(),
                         [](const ::testing::TestParamInfo<bool>& info) {
                           return info.param ? "PolarStretch" : "Stretch";
                         });
