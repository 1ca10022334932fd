#include <string>
#include <vector>

#include "DbTestSupport.h"
#include "platform/db/cloning/OdDbIdMapping.h"
#include "platform/db/cloning/OdRxEvent.h"
#include "platform/db/symtables/OdDbLayerTable.h"
#include "platform/db/symtables/OdDbLayerTableRecord.h"

namespace {
// Logs the clone notices and, like a block-copying module, renames the cloned block to "*U"
// when translation begins.
class RenamingReactor : public OdRxEventReactor {
 public:
  RenamingReactor(std::vector<std::string>& log, OdDbObjectId block) : m_log(log), m_block(block) {}
  void beginDeepClone(OdDbDatabase*, OdDbIdMapping&) override { m_log.push_back("begin"); }
  void beginDeepCloneXlation(OdDbIdMapping& mapping) override {
    m_log.push_back("xlation");
    OdDbIdPair pair(m_block);
    if (!mapping.compute(pair)) return;
    OdDbBlockTableRecordPtr(pair.value().safeOpenObject(OdDb::kForWrite))->setName("*U");
  }
  void endDeepClone(OdDbIdMapping&) override { m_log.push_back("end"); }
  void abortDeepClone(OdDbIdMapping&) override { m_log.push_back("abort"); }

 private:
  std::vector<std::string>& m_log;
  OdDbObjectId m_block;
};

}  // namespace

// A block "Part" with two entities; the first has an extension dictionary holding an xrecord
// that points (330) at the second entity and at model space, and owns (360) another xrecord.
class DbDeepClone : public DbTest {
 protected:
  void SetUp() override {
    DbTest::SetUp();
    inner = addBlock("Inner");
    part = addBlock("Part");
    first = addReference(part, inner);
    second = addReference(part, inner, OdGePoint3d(5, 0, 0));
    OdDbXrecordPtr owned = OdDbXrecord::createObject();
    ownedId = db->addOdDbObject(owned.get());
    owned->setFromRbChain(OdResBuf::newRb(1, "owned").get());
    owned.release();

    OdDbObjectPtr entity = first.safeOpenObject(OdDb::kForWrite);
    entity->createExtensionDictionary();
    OdDbDictionaryPtr xdict = open<OdDbDictionary>(entity->extensionDictionary(), OdDb::kForWrite);
    OdDbXrecordPtr links = OdDbXrecord::createObject();
    linksId = xdict->setAt("LINKS", links.get());
    links->setFromRbChain(
        chainOf({OdResBuf::newRb(330, second), OdResBuf::newRb(330, db->getModelSpaceId()),
                 OdResBuf::newRb(360, ownedId)})
            .get());
    open<OdDbObject>(ownedId, OdDb::kForWrite)->setOwnerId(linksId);
  }

  OdDbObjectId cloneOf(const OdDbIdMapping& mapping, const OdDbObjectId& id) {
    OdDbIdPair pair(id);
    return mapping.compute(pair) ? pair.value() : OdDbObjectId::kNull;
  }

  OdDbObjectId inner, part, first, second, ownedId, linksId;
};

TEST_F(DbDeepClone, BlockIsClonedWithNestedOwnershipAndTranslatedReferences) {
  std::vector<std::string> log;
  OdSmartPtr<RenamingReactor> reactor(new RenamingReactor(log, part));
  odrxEvent()->addReactor(reactor.get());
  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  db->deepCloneObjects(OdDbObjectIdArray{part}, db->getBlockTableId(), *mapping);
  odrxEvent()->removeReactor(reactor.get());
  EXPECT_EQ(log, (std::vector<std::string>{"begin", "xlation", "end"}));

  const OdDbObjectId copy = cloneOf(*mapping, part);
  OdDbIdPair pair(part);
  mapping->compute(pair);
  EXPECT_TRUE(pair.isCloned());
  EXPECT_TRUE(pair.isPrimary());
  OdDbBlockTableRecordPtr block = open<OdDbBlockTableRecord>(copy);
  EXPECT_EQ(block->getName(), "*U1");
  EXPECT_EQ(open<OdDbBlockTable>(db->getBlockTableId())->getAt("Part"), part);

  std::vector<OdDbObjectId> entities;
  for (OdDbObjectIteratorPtr it = block->newIterator(); !it->done(); it->step())
    entities.push_back(it->objectId());
  const OdDbObjectId firstCopy = cloneOf(*mapping, first);
  const OdDbObjectId secondCopy = cloneOf(*mapping, second);
  EXPECT_EQ(entities, (std::vector<OdDbObjectId>{firstCopy, secondCopy}));
  EXPECT_EQ(open<OdDbObject>(firstCopy)->ownerId(), copy);
  EXPECT_EQ(open<OdDbBlockReference>(secondCopy)->blockTableRecord(), inner);  // not cloned

  const OdDbObjectId xdictCopy = open<OdDbObject>(firstCopy)->extensionDictionary();
  EXPECT_NE(xdictCopy, open<OdDbObject>(first)->extensionDictionary());
  EXPECT_EQ(open<OdDbObject>(xdictCopy)->ownerId(), firstCopy);
  const OdDbObjectId linksCopy = open<OdDbDictionary>(xdictCopy)->getAt("LINKS");
  EXPECT_EQ(linksCopy, cloneOf(*mapping, linksId));
  OdResBufPtr chain = open<OdDbXrecord>(linksCopy)->rbChain();
  EXPECT_EQ(chain->getObjectId(), secondCopy);                     // inside: translated
  EXPECT_EQ(chain->next()->getObjectId(), db->getModelSpaceId());  // outside: kept
  const OdDbObjectId ownedCopy = chain->next()->next()->getObjectId();
  EXPECT_EQ(ownedCopy, cloneOf(*mapping, ownedId));
  EXPECT_EQ(open<OdDbObject>(ownedCopy)->ownerId(), linksCopy);
  EXPECT_EQ(open<OdDbXrecord>(ownedCopy)->rbChain()->getString(), "owned");

  // The original is untouched.
  EXPECT_EQ(open<OdDbXrecord>(linksId)->rbChain()->getObjectId(), second);
}

TEST_F(DbDeepClone, ACopyNeverClaimsAChildThatBelongsElsewhereOrWasErased) {
  // First the owned record is moved to another owner, then erased: either way it is not cloned,
  // and the copy of the record that files it as owned must not own it.
  const OdDbObjectId elsewhere = db->getNamedObjectsDictionaryId();
  for (bool erased : {false, true}) {
    SCOPED_TRACE(erased ? "erased" : "owned elsewhere");
    if (erased)
      open<OdDbObject>(ownedId, OdDb::kForWrite)->erase();
    else
      open<OdDbObject>(ownedId, OdDb::kForWrite)->setOwnerId(elsewhere);
    OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
    db->deepCloneObjects(OdDbObjectIdArray{part}, db->getBlockTableId(), *mapping);
    EXPECT_TRUE(cloneOf(*mapping, ownedId).isNull());
    const OdDbObjectId linksCopy = cloneOf(*mapping, linksId);
    ASSERT_FALSE(linksCopy.isNull());
    OdResBufPtr chain = open<OdDbXrecord>(linksCopy)->rbChain();
    EXPECT_EQ(chain->getObjectId(), cloneOf(*mapping, second));
    EXPECT_TRUE(chain->next()->next()->getObjectId().isNull());
    // The original keeps its own link and the child its owner.
    EXPECT_EQ(open<OdDbXrecord>(linksId)->rbChain()->next()->next()->getObjectId(), ownedId);
    EXPECT_EQ(open<OdDbObject>(ownedId, OdDb::kForRead, true)->ownerId(), elsewhere);
  }
}

TEST_F(DbDeepClone, UnfitOwnersAreRefusedBeforeAnythingIsCloned) {
  std::vector<std::string> log;
  OdSmartPtr<RenamingReactor> reactor(new RenamingReactor(log, part));
  odrxEvent()->addReactor(reactor.get());
  const OdDbHandle seed = db->handseed();
  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  EXPECT_OD_ERROR(db->deepCloneObjects(OdDbObjectIdArray{first}, db->getBlockTableId(), *mapping),
                  eInvalidOwnerObject);
  EXPECT_OD_ERROR(db->deepCloneObjects(OdDbObjectIdArray{part}, db->getModelSpaceId(), *mapping),
                  eInvalidOwnerObject);
  EXPECT_OD_ERROR(db->deepCloneObjects(OdDbObjectIdArray{linksId}, part, *mapping),
                  eInvalidOwnerObject);
  odrxEvent()->removeReactor(reactor.get());
  EXPECT_EQ(db->handseed(), seed);
  EXPECT_EQ(mapping->numPairs(), 0u);
  EXPECT_TRUE(log.empty());

  // Entities cloned into another block of the same database keep pointing at what they used.
  db->deepCloneObjects(OdDbObjectIdArray{second}, db->getModelSpaceId(), *mapping);
  const OdDbObjectId copy = cloneOf(*mapping, second);
  EXPECT_EQ(open<OdDbObject>(copy)->ownerId(), db->getModelSpaceId());
  OdDbObjectIdArray refs;
  open<OdDbBlockTableRecord>(inner)->getBlockReferenceIds(refs);
  EXPECT_TRUE(refs.contains(copy));
}

TEST_F(DbDeepClone, WblockCloneCopiesReferencedBlocksAndMapsLayersByName) {
  OdDbObjectId walls;
  {
    OdSmartPtr<OdDbLayerTable> layers =
        open<OdDbLayerTable>(db->getLayerTableId(), OdDb::kForWrite);
    OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
    layer->setName("Walls");
    layer->setColorIndex(1);
    walls = layers->add(layer.get());
  }
  const OdDbObjectId top = addReference(db->getModelSpaceId(), part);
  open<OdDbEntity>(top, OdDb::kForWrite)->setLayer("Walls");

  OdDbDatabasePtr dest = OdDbDatabase::createObject();
  {
    OdSmartPtr<OdDbLayerTable> layers =
        open<OdDbLayerTable>(dest->getLayerTableId(), OdDb::kForWrite);
    OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
    layer->setName("WALLS");
    layer->setColorIndex(3);
    layers->add(layer.get());
  }
  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  db->wblockCloneObjects(OdDbObjectIdArray{top}, dest->getModelSpaceId(), *mapping,
                         OdDb::kDrcIgnore);
  EXPECT_EQ(mapping->origDb(), db.get());
  EXPECT_EQ(mapping->destDb(), dest.get());

  const OdDbObjectId copy = cloneOf(*mapping, top);
  ASSERT_EQ(copy.database(), dest.get());
  OdDbBlockReferencePtr reference = open<OdDbBlockReference>(copy);
  OdDbLayerTableRecordPtr layer = open<OdDbLayerTableRecord>(reference->layerId());
  EXPECT_EQ(layer->getName(), "WALLS");  // the destination's own record
  EXPECT_EQ(layer->colorIndex(), 3);

  const OdDbObjectId partCopy = reference->blockTableRecord();
  EXPECT_EQ(partCopy.database(), dest.get());
  OdDbBlockTableRecordPtr block = open<OdDbBlockTableRecord>(partCopy);
  EXPECT_EQ(block->getName(), "Part");
  OdDbObjectIteratorPtr it = block->newIterator();
  ASSERT_FALSE(it->done());
  OdDbBlockReferencePtr nested = open<OdDbBlockReference>(it->objectId());
  EXPECT_EQ(nested->blockTableRecord().database(), dest.get());
  EXPECT_EQ(open<OdDbBlockTableRecord>(nested->blockTableRecord())->getName(), "Inner");
  EXPECT_EQ(nested->layerId(), dest->getLayerZeroId());

  // Ids that the destination cannot hold are dropped: the xrecord's pointer at the source's
  // model space became the destination's, its sibling pointer the sibling's copy.
  OdResBufPtr chain = open<OdDbXrecord>(cloneOf(*mapping, linksId))->rbChain();
  EXPECT_EQ(chain->getObjectId(), cloneOf(*mapping, second));
  EXPECT_EQ(chain->next()->getObjectId(), dest->getModelSpaceId());
  EXPECT_OD_ERROR(db->wblockCloneObjects(OdDbObjectIdArray{top}, db->getModelSpaceId(), *mapping,
                                         OdDb::kDrcIgnore),
                  eWrongDatabase);
}
