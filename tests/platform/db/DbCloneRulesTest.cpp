// Clone rules: deferred translation across several clone calls, the duplicate-record rules of
// wblock clone, and anonymous names given to clones.
#include "DbTestSupport.h"
#include "platform/db/symtables/OdDbLayerTable.h"
#include "platform/db/symtables/OdDbLayerTableRecord.h"

// Two blocks; an xrecord in the second block's first entity's extension dictionary points at an
// entity of the first block.
class DbCloneRules : public DbTest {
 protected:
  void SetUp() override {
    DbTest::SetUp();
    inner = addBlock("Inner");
    a = addBlock("A");
    b = addBlock("B");
    inA = addReference(a, inner);
    inB = addReference(b, inner);
    OdDbObjectPtr entity = inB.safeOpenObject(OdDb::kForWrite);
    entity->createExtensionDictionary();
    OdDbXrecordPtr link = OdDbXrecord::createObject();
    linkId = open<OdDbDictionary>(entity->extensionDictionary(), OdDb::kForWrite)
                 ->setAt("LINK", link.get());
    link->setFromRbChain(OdResBuf::newRb(330, inA).get());
  }

  OdDbObjectId layer(OdDbDatabase* database, const OdString& name, std::int16_t color) {
    OdSmartPtr<OdDbLayerTable> layers(database->getLayerTableId().safeOpenObject(OdDb::kForWrite));
    OdDbLayerTableRecordPtr record = OdDbLayerTableRecord::createObject();
    record->setName(name);
    record->setColorIndex(color);
    return layers->add(record.get());
  }

  OdDbObjectId inner, a, b, inA, inB, linkId;
};

TEST_F(DbCloneRules, DeferredTranslationWaitsForTheLastCallAndSpansAllOfThem) {
  CloneEventLog events;
  ScopedEventReactor scope(&events);
  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  db->deepCloneObjects(OdDbObjectIdArray{b}, db->getBlockTableId(), *mapping, true);
  EXPECT_EQ(events.log, std::vector<std::string>{"begin"});
  db->deepCloneObjects(OdDbObjectIdArray{a}, db->getBlockTableId(), *mapping, true);
  EXPECT_EQ(events.log, std::vector<std::string>{"begin"});
  db->deepCloneObjects(OdDbObjectIdArray{}, db->getBlockTableId(), *mapping);
  EXPECT_EQ(events.log, (std::vector<std::string>{"begin", "xlation", "end"}));

  // The link cloned in the first call points at the clone made in the second.
  const OdDbObjectId linkCopy = cloneOf(*mapping, linkId);
  ASSERT_FALSE(linkCopy.isNull());
  EXPECT_EQ(open<OdDbXrecord>(linkCopy)->rbChain()->getObjectId(), cloneOf(*mapping, inA));
  EXPECT_EQ(entitiesOf(cloneOf(*mapping, a)), OdDbObjectIdArray{cloneOf(*mapping, inA)});
  EXPECT_EQ(entitiesOf(cloneOf(*mapping, b)), OdDbObjectIdArray{cloneOf(*mapping, inB)});
  // Clones of named records that met their names took free "$n$" names.
  EXPECT_EQ(open<OdDbBlockTableRecord>(cloneOf(*mapping, b))->getName(), "$0$B");
  EXPECT_EQ(open<OdDbBlockTable>(db->getBlockTableId())->getAt("B"), b);

  // A new operation on a fresh mapping starts over.
  OdDbIdMappingPtr next = OdDbIdMapping::createObject();
  db->deepCloneObjects(OdDbObjectIdArray{inA}, db->getModelSpaceId(), *next);
  EXPECT_EQ(events.log.size(), 6u);
}

TEST_F(DbCloneRules, AnonymousClonesAreNumberedAndNumbersAreNeverReused) {
  CloneEventLog events;
  events.onXlation = [this](OdDbIdMapping& mapping) {
    OdDbBlockTableRecordPtr(cloneOf(mapping, a).safeOpenObject(OdDb::kForWrite))->setName("*U");
  };
  ScopedEventReactor scope(&events);
  OdDbIdMappingPtr first = OdDbIdMapping::createObject();
  db->deepCloneObjects(OdDbObjectIdArray{a}, db->getBlockTableId(), *first);
  const OdDbObjectId u1 = cloneOf(*first, a);
  EXPECT_EQ(open<OdDbBlockTableRecord>(u1)->getName(), "*U1");
  EXPECT_EQ(entitiesOf(u1).length(), 1u);

  // Erased and purged, *U1 still is not handed out again; a loaded *U7 pushes the counter.
  open<OdDbObject>(u1, OdDb::kForWrite)->erase();
  EXPECT_GE(db->purgeErased(), 2);
  OdDbIdMappingPtr second = OdDbIdMapping::createObject();
  db->deepCloneObjects(OdDbObjectIdArray{a}, db->getBlockTableId(), *second);
  EXPECT_EQ(open<OdDbBlockTableRecord>(cloneOf(*second, a))->getName(), "*U2");
  addBlock("*U7");
  OdDbIdMappingPtr third = OdDbIdMapping::createObject();
  db->deepCloneObjects(OdDbObjectIdArray{a}, db->getBlockTableId(), *third);
  EXPECT_EQ(open<OdDbBlockTableRecord>(cloneOf(*third, a))->getName(), "*U8");

  // Cloning an anonymous block numbers the clone at once.
  events.onXlation = nullptr;
  const OdDbObjectId u8 = cloneOf(*third, a);
  OdDbIdMappingPtr fourth = OdDbIdMapping::createObject();
  db->deepCloneObjects(OdDbObjectIdArray{u8}, db->getBlockTableId(), *fourth);
  EXPECT_EQ(open<OdDbBlockTableRecord>(cloneOf(*fourth, u8))->getName(), "*U9");
  EXPECT_EQ(open<OdDbBlockTableRecord>(u8)->getName(), "*U8");
}

TEST_F(DbCloneRules, WblockReplaceKeepsTheDestinationRecordAndTakesTheSourceContents) {
  const OdDbObjectId walls = layer(db.get(), "Walls", 1);
  open<OdDbEntity>(inA, OdDb::kForWrite)->setLayer(walls);
  const OdDbObjectId top = addReference(db->getModelSpaceId(), a);

  OdDbDatabasePtr dest = OdDbDatabase::createObject();
  const OdDbObjectId destWalls = layer(dest.get(), "WALLS", 3);
  OdSmartPtr<OdDbBlockTable> destBlocks(dest->getBlockTableId().safeOpenObject(OdDb::kForWrite));
  OdDbBlockTableRecordPtr old = OdDbBlockTableRecord::createObject();
  old->setName("A");
  const OdDbObjectId destA = destBlocks->add(old.get());
  OdDbBlockReferencePtr oldEntity = OdDbBlockReference::createObject();
  oldEntity->setBlockTableRecord(dest->getPaperSpaceId());
  const OdDbObjectId oldEntityId = old->appendOdDbEntity(oldEntity.get());
  oldEntity.release();
  old.release();
  destBlocks.release();

  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  db->wblockCloneObjects(OdDbObjectIdArray{top}, dest->getModelSpaceId(), *mapping,
                         OdDb::kDrcReplace);
  EXPECT_EQ(cloneOf(*mapping, a), destA);
  EXPECT_EQ(cloneOf(*mapping, walls), destWalls);
  EXPECT_TRUE(oldEntityId.isErased());
  const OdDbObjectIdArray entities = entitiesOf(destA);
  ASSERT_EQ(entities.length(), 1u);
  EXPECT_EQ(entities[0], cloneOf(*mapping, inA));
  EXPECT_EQ(open<OdDbObject>(entities[0])->ownerId(), destA);
  EXPECT_EQ(open<OdDbEntity>(entities[0])->layerId(), destWalls);
  OdDbLayerTableRecordPtr replaced = open<OdDbLayerTableRecord>(destWalls);
  EXPECT_EQ(replaced->colorIndex(), 1);  // the source's data
  EXPECT_EQ(replaced->ownerId(), dest->getLayerTableId());
  EXPECT_EQ(open<OdDbLayerTable>(dest->getLayerTableId())->getAt("walls"), destWalls);
  EXPECT_EQ(open<OdDbBlockReference>(cloneOf(*mapping, top))->blockTableRecord(), destA);
}

TEST_F(DbCloneRules, WblockMangleAddsPrefixedRecordsBesideTheDestinationOnes) {
  const OdDbObjectId walls = layer(db.get(), "Walls", 1);
  open<OdDbEntity>(inA, OdDb::kForWrite)->setLayer(walls);
  const OdDbObjectId top = addReference(db->getModelSpaceId(), a);

  OdDbDatabasePtr dest = OdDbDatabase::createObject();
  const OdDbObjectId destWalls = layer(dest.get(), "Walls", 3);
  const OdDbObjectId taken = layer(dest.get(), "$0$Walls", 4);
  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  db->wblockCloneObjects(OdDbObjectIdArray{top}, dest->getModelSpaceId(), *mapping,
                         OdDb::kDrcMangleName);
  const OdDbObjectId mangled = cloneOf(*mapping, walls);
  ASSERT_FALSE(mangled.isNull());
  EXPECT_NE(mangled, destWalls);
  EXPECT_NE(mangled, taken);
  EXPECT_EQ(open<OdDbLayerTableRecord>(mangled)->getName(), "$1$Walls");
  EXPECT_EQ(open<OdDbLayerTableRecord>(mangled)->colorIndex(), 1);
  EXPECT_EQ(open<OdDbLayerTableRecord>(destWalls)->colorIndex(), 3);
  OdSmartPtr<OdDbLayerTable> layers = open<OdDbLayerTable>(dest->getLayerTableId());
  EXPECT_EQ(layers->getAt("$1$WALLS"), mangled);
  EXPECT_EQ(layers->getAt("Walls"), destWalls);
  EXPECT_EQ(open<OdDbEntity>(cloneOf(*mapping, inA))->layerId(), mangled);
}
