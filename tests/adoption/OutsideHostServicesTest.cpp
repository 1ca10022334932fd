// The host services the module installs: a reference's outside definition found, so that
// restoring the reference points it back there, and the converter's stripping of a definition.
#include "AdoptionTestSupport.h"
#include "adoption/CJbOutsideBlockAdopter.h"
#include "adoption/CJbOutsideBlockReader.h"
#include "storage/CJbDbCustBlockStorage.h"

class OutsideHostServicesTest : public AdoptionTest {
 protected:
  void SetUp() override {
    AdoptionTest::SetUp();
    if (IsSkipped()) return;
    Read("acadsharp_dyn_linear.dxf");
    master = CJbOutsideDrawing(db.get()).Blocks().front();
    edited = db->getOdDbObjectId(OdDbHandle(0x284));
    plain = db->getOdDbObjectId(OdDbHandle(0x254));
  }

  OdDbObjectId master;
  OdDbObjectId edited;  // shows the anonymous block the other program made for it
  OdDbObjectId plain;   // shows the definition itself
};

TEST_F(OutsideHostServicesTest, ARestoredReferenceGoesBackToItsOutsideDefinition) {
  EXPECT_EQ(CJbUtils::GetDynBlockId(edited), master);
  EXPECT_EQ(CJbUtils::GetDynBlockId(plain), master);
  const OdDbObjectId own = addReference(db->getModelSpaceId(), addBlock("Own"));
  EXPECT_TRUE(CJbUtils::GetDynBlockId(own).isNull());

  // Adoption takes the reference's record away; its anonymous block still names the definition.
  const CJbOutsideDrawing drawing(db.get());
  ASSERT_TRUE(CJbOutsideBlockAdopter::Adopt(drawing, master, false).adopted);
  EXPECT_EQ(CJbUtils::GetDynBlockId(edited), master);
  CJbDbCustBlockStorage::RemoveReferenceCustomization(edited, false, true);
  EXPECT_EQ(open<OdDbBlockReference>(edited)->blockTableRecord(), master);
}

TEST_F(OutsideHostServicesTest, TheConverterStripsTheDefinitionAndTheTagsOfItsEntitiesOnly) {
  const OdDbObjectId graph = CJbOutsideBlockReader::GraphOf(master);
  const OdDbObjectIdArray nodes = open<OdDbObject>(graph)->ownedIds();
  ASSERT_EQ(nodes.length(), 8u);
  {
    OdDbBlockTableRecordPtr block = open<OdDbBlockTableRecord>(master, OdDb::kForWrite);
    block->setXData(chainOf({OdResBuf::newRb(1001, "KEEP"), OdResBuf::newRb(1000, "mine")}).get());
  }
  const OdDbObjectId copy = open<OdDbBlockReference>(edited)->blockTableRecord();

  CJbCustBlockConverterUtils::Get()->RemoveOutsideData(master);
  EXPECT_TRUE(graph.isErased());
  for (const OdDbObjectId& node : nodes)
    EXPECT_TRUE(node.isErased());
  const OdDbBlockTableRecordPtr block = open<OdDbBlockTableRecord>(master);
  EXPECT_TRUE(block->extensionDictionary().isNull());
  EXPECT_TRUE(block->xData("AcDbDynamicBlockTrueName").isNull());
  EXPECT_FALSE(block->xData("KEEP").isNull());
  EXPECT_TRUE(block->newIterator()->entity()->xData("AcDbBlockRepETag").isNull());
  // The anonymous blocks made from it are not the definition: they keep what names it.
  const OdDbBlockTableRecordPtr instance = open<OdDbBlockTableRecord>(copy);
  EXPECT_FALSE(instance->xData("AcDbBlockRepBTag").isNull());
  EXPECT_FALSE(instance->newIterator()->entity()->xData("AcDbBlockRepETag").isNull());
}
