// Damage the storage can meet in a drawing: entries of erased blocks, state that is no extension
// record or does not load, masters without a graph, graphs and state of an older format. The audit
// reports each, and with fixing on repairs it without losing anything else; removing a master
// takes its instances along and points their references back at it; another application's
// round-trip data is stripped from blocks and references.
#include <string>

#include "StorageTestSupport.h"
#include "platform/db/OdDbAuditInfo.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/filers/OdDbMemoryDwgFiler.h"
#include "platform/dxf/DxfFile.h"
#include "platform/host/CJbCustBlockConverterUtils.h"

class StorageAuditTest : public StorageTest {
 protected:
  void SetUp() override {
    StorageTest::SetUp();
    door = addDoor("Door");
    references = addReferences(3, 3);
  }

  // Audits the drawing; the number of errors the storage reported.
  int audit(bool fix) {
    OdDbAuditInfo info(fix);
    db->auditDatabase(&info);
    int found = 0;
    for (const auto& error : info.errors())
      if (error.object.find("Storage") >= 0) ++found;
    return found;
  }

  std::vector<OdDbObjectId> references;
};

TEST_F(StorageAuditTest, ErasedBlocksAndUnreadableStateAreReportedAndRepaired) {
  // An instance block erased behind the storage's back.
  const OdDbObjectId lost = blockOf(references[0]);
  open<OdDbEntity>(references[0], OdDb::kForWrite)->erase(true);
  open<OdDbBlockTableRecord>(lost, OdDb::kForWrite)->erase(true);
  // State of the wrong shape.
  const OdDbObjectId garbled = blockOf(references[1]);
  storage(OdDb::kForWrite)
      ->SetCustomData(garbled, chainOf({OdResBuf::newRb(OdResBuf::kRtString, "state"),
                                        OdResBuf::newRb(1, "not a count")}));

  EXPECT_EQ(audit(false), 2);
  EXPECT_TRUE(storage()->IsBlockCustomizable(lost));
  EXPECT_EQ(audit(true), 2);
  EXPECT_EQ(audit(false), 0);
  EXPECT_FALSE(storage()->IsBlockCustomizable(lost));
  // The garbled block keeps its geometry and gets loadable state back; the rest is untouched.
  EXPECT_TRUE(SameFrame(frameOf(garbled), DoorFrame(20)));
  EXPECT_GT(savedWidth(garbled), 0.0);
  EXPECT_NEAR(savedWidth(blockOf(references[2])), 25.0, 1e-9);
  dragWidth(references[1], OdGeVector3d(5, 0, 0));
  EXPECT_EQ(blockOf(references[1]), garbled);
  EXPECT_TRUE(storage()->IsBlockMaster(door));
}

TEST_F(StorageAuditTest, CleanUpAndRemovingAMasterTakeInstancesAlong) {
  const OdDbObjectId erased = blockOf(references[2]);
  open<OdDbEntity>(references[2], OdDb::kForWrite)->erase(true);
  open<OdDbBlockTableRecord>(erased, OdDb::kForWrite)->erase(true);
  storage(OdDb::kForWrite)->CleanUp();
  EXPECT_FALSE(storage()->IsBlockCustomizable(erased));
  OdArray<OdDbObjectId> instances;
  EXPECT_TRUE(storage()->GetAllBlockInstancesForMasterBlock(door, instances));
  EXPECT_EQ(instances.length(), 2u);

  OdDbObjectId graph;
  storage()->GetMasterBlockGraphId(door, graph);
  EXPECT_TRUE(storage(OdDb::kForWrite)->RemoveBlock(door, true));
  EXPECT_FALSE(storage()->IsBlockCustomizable(door));
  for (const OdDbObjectId& instance : instances)
    EXPECT_FALSE(storage()->IsBlockCustomizable(instance));
  EXPECT_EQ(blockOf(references[0]), door);
  EXPECT_EQ(blockOf(references[1]), door);
  EXPECT_TRUE(graph.isErased());
  EXPECT_FALSE(storage(OdDb::kForWrite)->RemoveBlock(door, true));
}

TEST_F(StorageAuditTest, AnEntryNamingOtherObjectsIsDroppedWithoutErasingThem) {
  // A damaged record: an entry whose block is a reference, whose graph is model space and whose
  // state is another reference.
  CJbDbCustBlockStoragePtr filed = storage(OdDb::kForWrite);
  OdDbMemoryDwgFilerPtr filer = OdDbMemoryDwgFiler::createObject(db.get(), OdDb::kFileFiler);
  filer->wrSoftPointerId(filed->ownerId());
  filer->wrInt32(0);
  filer->wrHardOwnershipId(OdDbObjectId::kNull);
  for (std::int32_t value : {0, 0, 0, 1})
    filer->wrInt32(value);
  filer->wrSoftPointerId(references[0]);
  filer->wrSoftPointerId(references[0]);
  filer->wrString("Damaged");
  filer->wrHardOwnershipId(db->getModelSpaceId());
  filer->wrHardOwnershipId(references[1]);
  filer->seek(0, OdDb::kSeekFromStart);
  ASSERT_EQ(filed->dwgInFields(filer.get()), eOk);
  filed.release();
  EXPECT_EQ(audit(true), 1);
  EXPECT_FALSE(storage()->IsBlockCustomizable(references[0]));
  for (const OdDbObjectId& kept : {db->getModelSpaceId(), references[0], references[1]})
    EXPECT_FALSE(kept.isErased());
}

TEST_F(StorageAuditTest, OutsideRoundTripDataIsStrippedFromBlocksAndReferences) {
  const OdDbObjectId block = blockOf(references[0]);
  {
    OdDbBlockTableRecordPtr record = open<OdDbBlockTableRecord>(block, OdDb::kForWrite);
    OdDbDictionaryPtr dictionary =
        open<OdDbDictionary>(record->extensionDictionary(), OdDb::kForWrite);
    dictionary->setAt("ACAD_ENHANCEDBLOCK", OdDbXrecord::createObject().get());
    dictionary->setAt("AcDbDynamicBlockRoundTripPurgePreventer", OdDbXrecord::createObject().get());
    record->setXData(
        chainOf({OdResBuf::newRb(1001, "AcDbDynamicBlockGUID"), OdResBuf::newRb(1000, "{guid}"),
                 OdResBuf::newRb(1001, "KEEP"), OdResBuf::newRb(1000, "mine")})
            .get());
    OdDbBlockReferencePtr reference = open<OdDbBlockReference>(references[0], OdDb::kForWrite);
    reference->createExtensionDictionary();
    open<OdDbDictionary>(reference->extensionDictionary(), OdDb::kForWrite)
        ->setAt("AcDbBlockRepresentation", OdDbXrecord::createObject().get());
  }
  OdDbDictionaryPtr outside =
      open<OdDbDictionary>(open<OdDbBlockTableRecord>(block)->extensionDictionary());
  const OdDbObjectId enhanced = outside->getAt("ACAD_ENHANCEDBLOCK");
  const OdDbObjectId preventer = outside->getAt("AcDbDynamicBlockRoundTripPurgePreventer");
  const OdDbObjectId representation =
      open<OdDbDictionary>(open<OdDbBlockReference>(references[0])->extensionDictionary())
          ->getAt("AcDbBlockRepresentation");
  outside.release();
  CJbDbCustBlockStorage::RemoveBlockCustomization(block, false, true);
  OdDbBlockTableRecordPtr record = open<OdDbBlockTableRecord>(block);
  OdDbDictionaryPtr dictionary = open<OdDbDictionary>(record->extensionDictionary());
  // Erased, not only taken out of the dictionary: a record without its owner is still written.
  EXPECT_TRUE(enhanced.isErased());
  EXPECT_TRUE(preventer.isErased());
  EXPECT_FALSE(dictionary->has("AcDbDynamicBlockRoundTripPurgePreventer"));
  EXPECT_TRUE(dictionary->has("JbPurgePreventor"));
  EXPECT_TRUE(record->xData("AcDbDynamicBlockGUID").isNull());
  EXPECT_FALSE(record->xData("KEEP").isNull());
  EXPECT_TRUE(storage()->IsBlockCustomizable(block));
  record.release();
  dictionary.release();

  // An installed converter does the stripping, and may open the block itself.
  struct Converter : CJbCustBlockConverterUtils {
    void RemoveOutsideData(const OdDbObjectId& blockId) override {
      opened = !blockId.openObject(OdDb::kForWrite).isNull();
    }
    bool opened = false;
  } converter;
  CJbCustBlockConverterUtils* before = CJbCustBlockConverterUtils::Set(&converter);
  CJbDbCustBlockStorage::RemoveBlockCustomization(block, false, true);
  CJbCustBlockConverterUtils::Set(before);
  EXPECT_TRUE(converter.opened);

  CJbDbCustBlockStorage::RemoveReferenceCustomization(references[0], true, true);
  EXPECT_FALSE(storage()->IsBlockCustomizable(block));
  EXPECT_EQ(blockOf(references[0]), door);
  EXPECT_TRUE(open<OdDbBlockReference>(references[0])->extensionDictionary().isNull());
  EXPECT_TRUE(representation.isErased());
}

TEST_F(StorageAuditTest, OlderGraphsAndStateAreBroughtToTheCurrentFormat) {
  // State saved by an older format is saved again.
  const OdDbObjectId block = blockOf(references[0]);
  OdResBufPtr chain;
  ASSERT_TRUE(storage()->GetCustomData(block, chain));
  chain->last()->setInt32(6);
  storage(OdDb::kForWrite)->SetCustomData(block, chain);
  EXPECT_EQ(audit(false), 1);
  EXPECT_EQ(audit(true), 1);
  EXPECT_EQ(audit(false), 0);
  storage()->GetCustomData(block, chain);
  EXPECT_EQ(chain->last()->getInt32(), 7);

  // The master graph as a drawing of format 0.6 carries it.
  std::string text = DxfFile::writeToMemory(db.get());
  const std::size_t marker = text.find("100\r\nJbDbCustBlockGraph\r\n");
  ASSERT_NE(marker, std::string::npos);
  // The second 90 after the marker is the minor version; its value line ends in the digit.
  const std::size_t minorCode = text.find(" 90\r\n", text.find(" 90\r\n", marker) + 1);
  const std::size_t minor = text.find("\r\n", minorCode + 5) - 1;
  ASSERT_EQ(text[minor], '7');
  text[minor] = '6';
  const auto graphOf = [this](const OdDbObjectId& master) {
    OdDbObjectId graph;
    storage()->GetMasterBlockGraphId(master, graph);
    return open<CJbDbCustBlockGraph>(graph);
  };
  const OdDbHandle doorHandle = door.getHandle(), editedHandle = references[1].getHandle();
  db = DxfFile::readFromMemory(text);
  door = db->getOdDbObjectId(doorHandle);
  ASSERT_TRUE(graphOf(door)->IsOlderVersion());
  EXPECT_EQ(audit(true), 1);
  EXPECT_FALSE(graphOf(door)->IsOlderVersion());

  // An edit brings the graph up as well, and goes on from the saved state.
  db = DxfFile::readFromMemory(text);
  door = db->getOdDbObjectId(doorHandle);
  const OdDbObjectId edited = db->getOdDbObjectId(editedHandle);
  dragWidth(edited, OdGeVector3d(5, 0, 0));
  EXPECT_FALSE(graphOf(door)->IsOlderVersion());
  EXPECT_TRUE(SameFrame(frameOf(blockOf(edited)), DoorFrame(25)));
  EXPECT_NEAR(savedWidth(blockOf(edited)), 25.0, 1e-9);
}
