// The storage record in DWG and DXF: entries in handle order, a master's graph owned and an
// instance's only referred to, reserved values kept, out-of-place DXF codes refused with the
// entries read so far kept; and the id rules of swapping masters and of mapping saved state.
#include <algorithm>
#include <string>

#include "StorageTestSupport.h"
#include "platform/db/filers/OdDbMemoryDwgFiler.h"
#include "platform/dxf/DxfFile.h"

namespace {
// The entries of a DXF record: one text per item after the entry count.
std::vector<std::vector<std::string>> dxfEntries(const OdResBuf* items) {
  std::vector<std::string> texts = tagTexts(items);
  auto marker = std::find(texts.begin(), texts.end(), "100 JbDbCustBlockStorage");
  std::vector<std::vector<std::string>> entries;
  for (auto it = marker + 4; it + 5 <= texts.end(); it += 5)
    entries.emplace_back(it, it + 5);
  return entries;
}

std::vector<OdDbObjectId> inHandleOrder(std::vector<OdDbObjectId> ids) {
  std::sort(ids.begin(), ids.end(), [](const OdDbObjectId& a, const OdDbObjectId& b) {
    return a.getHandle() < b.getHandle();
  });
  return ids;
}

class MappingProbe : public CJbDbCustBlockStorage {
 public:
  using CJbDbCustBlockStorage::ApplyMappingToCustomData;
};
}  // namespace

class StorageFilingTest : public StorageTest {
 protected:
  void SetUp() override {
    StorageTest::SetUp();
    door = addDoor("Door");
    for (const OdDbObjectId& reference : addReferences(3, 2))
      blocks.push_back(blockOf(reference));
    storage(OdDb::kForWrite)->GetMasterBlockGraphId(door, graph);
  }

  // What the storage says about each block, to compare two storages by.
  std::vector<std::string> describe(const CJbDbCustBlockStorage* filed) {
    std::vector<std::string> facts;
    for (const OdDbObjectId& block : {blocks[0], blocks[1], door}) {
      OdDbObjectId master, graphId;
      const bool known = static_cast<bool>(filed->GetMasterBlockId(block, master));
      filed->GetMasterBlockGraphId(block, graphId);
      facts.push_back(std::to_string(known) + " " + hex(master) + " " + hex(graphId) + " " +
                      std::to_string(filed->IsBlockMaster(block)));
    }
    return facts;
  }

  std::vector<OdDbObjectId> blocks;
  OdDbObjectId graph;
};

TEST_F(StorageFilingTest, EntriesAreFiledInHandleOrderWithTheGraphOwnedByItsMaster) {
  CJbDbCustBlockStoragePtr filed = storage();
  const auto entries = dxfEntries(dxfItemsOf(filed.get()).get());
  ASSERT_EQ(entries.size(), 3u);
  const std::vector<OdDbObjectId> ids = inHandleOrder({door, blocks[0], blocks[1]});
  for (std::size_t i = 0; i < ids.size(); ++i) {
    EXPECT_EQ(entries[i][0], "330 " + hex(ids[i]));
    EXPECT_EQ(entries[i][1], "330 " + hex(door));
    EXPECT_EQ(entries[i][3], (ids[i] == door ? "360 " : "330 ") + hex(graph));
  }
  EXPECT_EQ(entries[std::find(ids.begin(), ids.end(), door) - ids.begin()][2], "100 Door");

  const std::vector<std::string> facts = describe(filed.get());
  const std::vector<std::string> items = tagTexts(dxfItemsOf(filed.get()).get());
  filed.release();
  filed = storage(OdDb::kForWrite);
  OdDbMemoryDwgFilerPtr dwg = OdDbMemoryDwgFiler::createObject(db.get(), OdDb::kFileFiler);
  filed->dwgOutFields(dwg.get());
  EXPECT_TRUE(dwg->collectedIds(OdDb::kHardOwnershipRef).contains(graph));
  EXPECT_EQ(std::count(dwg->collectedIds(OdDb::kSoftPointerRef).begin(),
                       dwg->collectedIds(OdDb::kSoftPointerRef).end(), graph),
            2);
  dwg->seek(0, OdDb::kSeekFromStart);
  ASSERT_EQ(filed->dwgInFields(dwg.get()), eOk);
  EXPECT_EQ(describe(filed.get()), facts);
  EXPECT_EQ(tagTexts(dxfItemsOf(filed.get()).get()), items);

  // DXF comes back the same way.
  OdDbResBufDxfFilerPtr dxf = OdDbResBufDxfFiler::createObject(db.get(), dxfItemsOf(filed.get()));
  ASSERT_EQ(filed->dxfInFields(dxf.get()), eOk);
  EXPECT_EQ(describe(filed.get()), facts);
}

TEST_F(StorageFilingTest, AnOutOfPlaceDxfCodeStopsReadingAndKeepsTheEntriesBefore) {
  const OdResBufPtr items = dxfItemsOf(storage().get());
  std::vector<std::string> texts = tagTexts(items.get());
  const std::size_t marker =
      std::find(texts.begin(), texts.end(), "100 JbDbCustBlockStorage") - texts.begin();
  // Where the record breaks, and how many entries the storage has after it.
  const std::pair<std::size_t, unsigned> breaks[] = {
      {marker + 1, 3}, {marker + 3, 0}, {marker + 4 + 5 + 2, 1}, {marker + 4 + 5 + 4, 1}};
  for (const auto& [broken, kept] : breaks) {
    OdResBufPtr copy = items->copyChain();
    OdResBuf* item = copy.get();
    for (std::size_t i = 0; i < broken; ++i)
      item = item->next().get();
    item->setRestype(1);
    CJbDbCustBlockStoragePtr read = storage(OdDb::kForWrite);
    OdDbResBufDxfFilerPtr filer = OdDbResBufDxfFiler::createObject(db.get(), copy);
    EXPECT_EQ(read->dxfInFields(filer.get()), eBadDxfSequence) << broken;
    // Broken before the reserved values are read, the storage keeps what it had; once they are,
    // it is emptied, so that a broken count leaves nothing and a broken second entry the first.
    const std::vector<OdDbObjectId> ids = inHandleOrder({door, blocks[0], blocks[1]});
    for (unsigned i = 0; i < ids.size(); ++i)
      EXPECT_EQ(read->IsBlockCustomizable(ids[i]), i < kept) << broken << " " << i;
  }
}

TEST_F(StorageFilingTest, SwappingNeedsAMasterAndNoInstance) {
  const std::vector<std::string> before = describe(storage().get());
  const OdDbObjectId plainA = addBlock("A"), plainB = addBlock("B");
  storage(OdDb::kForWrite)->SwapBlockIds(plainA, plainB);
  storage(OdDb::kForWrite)->SwapBlockIds(door, blocks[0]);
  storage(OdDb::kForWrite)->SwapBlockIds(door, OdDbObjectId::kNull);
  EXPECT_EQ(describe(storage().get()), before);
  EXPECT_FALSE(storage()->IsBlockCustomizable(plainA));

  // A master swapped with a plain block: the entries and the graph follow.
  storage(OdDb::kForWrite)->SwapBlockIds(plainA, door);
  EXPECT_TRUE(storage()->IsBlockMaster(plainA));
  EXPECT_FALSE(storage()->IsBlockCustomizable(door));
  OdDbObjectId master;
  EXPECT_TRUE(storage()->GetMasterBlockId(blocks[1], master));
  EXPECT_EQ(master, plainA);
  EXPECT_EQ(open<CJbDbCustBlockGraph>(graph)->GetBlockDefinitionId(), plainA);
}

TEST_F(StorageFilingTest, MappingRewritesOnlySoftPointers) {
  const OdDbObjectId original = blocks[0], copy = blocks[1];
  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  mapping->assign(OdDbIdPair(original, copy, true));
  OdResBufPtr chain = chainOf({OdResBuf::newRb(330, original), OdResBuf::newRb(340, original),
                               OdResBuf::newRb(360, original), OdResBuf::newRb(330, door)});
  MappingProbe::ApplyMappingToCustomData(chain, *mapping);
  EXPECT_EQ(tagTexts(chain.get()),
            (std::vector<std::string>{"330 " + hex(copy), "340 " + hex(original),
                                      "360 " + hex(original), "330 " + hex(door)}));
}

TEST_F(StorageFilingTest, TheDrawingKeepsOneStorageUnderItsKeyAndDeclaresItsClass) {
  OdDbDatabasePtr fresh = OdDbDatabase::createObject();
  EXPECT_TRUE(CJbDbCustBlockStorage::GetStorage(fresh.get(), OdDb::kForRead, false).isNull());
  EXPECT_TRUE(CJbDbCustBlockStorage::GetStorage(nullptr, OdDb::kForRead, true).isNull());
  OdDbObjectId created;
  {
    CJbDbCustBlockStoragePtr made =
        CJbDbCustBlockStorage::GetStorage(fresh.get(), OdDb::kForRead, true);
    ASSERT_FALSE(made.isNull());
    EXPECT_FALSE(made->isWriteEnabled());
    created = made->objectId();
  }
  EXPECT_EQ(open<OdDbDictionary>(fresh->getNamedObjectsDictionaryId())->getAt("JB_CUST_BLOCK_DATA"),
            created);
  EXPECT_EQ(CJbDbCustBlockStorage::GetStorage(fresh.get(), OdDb::kForWrite, true)->objectId(),
            created);

  // State is only stored for blocks of the storage's own drawing.
  const OdDbObjectId foreign =
      open<OdDbBlockTable>(fresh->getBlockTableId())->getAt("*Model_Space");
  EXPECT_FALSE(storage(OdDb::kForWrite)->SetCustomData(door, foreign, OdResBufPtr()));
  EXPECT_FALSE(storage()->IsBlockCustomizable(foreign));

  const std::string text = DxfFile::writeToMemory(db.get());
  const std::size_t declared = text.find(
      "JB_BLOCK_STORAGE\r\n  2\r\nJbDbCustBlockStorage\r\n  3\r\n"
      "JBDBCB Classes");
  EXPECT_NE(declared, std::string::npos);
  EXPECT_LT(declared, text.find("ENTITIES"));
}
