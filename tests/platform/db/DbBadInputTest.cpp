// Bad input: each misuse fails with its own result, a message naming the object by class and
// handle, and leaves the object as it was.
#include "DbTestSupport.h"

namespace {
class ChangeLog : public OdStaticRxObject<OdDbObjectReactor> {
 public:
  void openedForModify(const OdDbObject*) override { ++opened; }
  void modified(const OdDbObject*) override { ++modifications; }
  int opened = 0;
  int modifications = 0;
};
}  // namespace

class DbBadInput : public DbTest {
 protected:
  void SetUp() override {
    DbTest::SetUp();
    OdDbXrecordPtr record = OdDbXrecord::createObject();
    id = open<OdDbDictionary>(db->getNamedObjectsDictionaryId(), OdDb::kForWrite)
             ->setAt("R", record.get());
    record->setFromRbChain(OdResBuf::newRb(1, "kept").get());
    record.release();
    open<OdDbObject>(id)->addReactor(&changes);
    name = "OdDbXrecord (handle " + hex(id) + ")";
  }
  void TearDown() override {
    if (!id.isErased()) open<OdDbObject>(id)->removeReactor(&changes);
  }

  OdDbObjectId id;
  std::string name;
  ChangeLog changes;
};

TEST_F(DbBadInput, OpeningNullForeignOrBusyObjectsFailsAndNamesThem) {
  EXPECT_OD_ERROR_NAMING(db->openObject(OdDbObjectId::kNull), eNullObjectId, "null");
  OdDbDatabasePtr other = OdDbDatabase::createObject();
  EXPECT_OD_ERROR_NAMING(other->openObject(id), eWrongDatabase, name);

  OdDbObjectPtr writer = db->openObject(id, OdDb::kForWrite);
  EXPECT_OD_ERROR_NAMING(db->openObject(id, OdDb::kForWrite), eWasOpenForWrite, name);
  EXPECT_OD_ERROR_NAMING(db->openObject(id, OdDb::kForRead), eWasOpenForWrite, name);
  writer.release();
  OdDbObjectPtr reader = db->openObject(id);
  EXPECT_OD_ERROR_NAMING(db->openObject(id, OdDb::kForWrite), eWasOpenForRead, name, "for write");
  OdDbXrecordPtr record = OdDbXrecord::cast(reader.get());
  EXPECT_OD_ERROR_NAMING(record->setFromRbChain(OdResBuf::newRb(1, "lost").get()), eNotOpenForWrite,
                         name);
  EXPECT_OD_ERROR_NAMING(record->downgradeOpen(), eWasNotOpenForWrite, name);
  EXPECT_FALSE(record->isModified());
  EXPECT_EQ(record->rbChain()->getString(), "kept");
  record.release();
  reader.release();
  EXPECT_EQ(changes.opened, 0);
  EXPECT_EQ(changes.modifications, 0);
}

TEST_F(DbBadInput, UpgradeAndDowngradeFollowTheHolders) {
  OdDbObjectPtr first = db->openObject(id);
  OdDbObjectPtr second = db->openObject(id);
  EXPECT_OD_ERROR_NAMING(first->upgradeOpen(), eWasOpenForRead, name, "2 holders");
  EXPECT_EQ(first->openMode(), OdDb::kForRead);
  second.release();
  first->upgradeOpen();
  first->upgradeOpen();  // already a writer: nothing to do
  EXPECT_TRUE(first->isWriteEnabled());

  // Downgrading a modified object tells its reactors once; the reader may not write after.
  OdDbXrecord::cast(first.get())->setFromRbChain(OdResBuf::newRb(1, "new").get());
  first->downgradeOpen();
  EXPECT_EQ(changes.modifications, 1);
  EXPECT_FALSE(first->isModified());
  EXPECT_OD_ERROR(first->assertWriteEnabled(), eNotOpenForWrite);
  first->upgradeOpen();
  OdDbObject* closed = first.get();
  first.release();  // nothing changed since the downgrade
  EXPECT_EQ(changes.modifications, 1);

  // A closed object cannot be upgraded; one open for notify neither.
  EXPECT_OD_ERROR_NAMING(closed->upgradeOpen(), eNotOpenForRead, name);
  OdDbObjectPtr notified = db->openObject(id, OdDb::kForNotify);
  EXPECT_OD_ERROR_NAMING(notified->upgradeOpen(), eWasOpenForNotify, name);
  EXPECT_EQ(notified->openMode(), OdDb::kForNotify);
}

TEST_F(DbBadInput, CrossDatabaseOwnersAndDuplicatesChangeNothing) {
  OdDbDatabasePtr other = OdDbDatabase::createObject();
  OdDbObjectPtr record = db->openObject(id, OdDb::kForWrite);
  const OdDbObjectId owner = record->ownerId();
  EXPECT_OD_ERROR_NAMING(record->setOwnerId(other->getNamedObjectsDictionaryId()), eWrongDatabase,
                         name, "another database");
  EXPECT_OD_ERROR_NAMING(record->setOwnerId(id), eSelfReference, name);
  EXPECT_EQ(record->ownerId(), owner);
  EXPECT_FALSE(record->isModified());  // a refused change is no change
  record.release();
  EXPECT_EQ(changes.opened, 0);
  EXPECT_EQ(changes.modifications, 0);

  // Adding twice, to a block or a database, and a taken handle.
  OdDbBlockReferencePtr entity = OdDbBlockReference::createObject();
  OdDbBlockTableRecordPtr space =
      open<OdDbBlockTableRecord>(db->getModelSpaceId(), OdDb::kForWrite);
  const OdDbObjectId entityId = space->appendOdDbEntity(entity.get());
  const std::string entityName = "OdDbBlockReference (handle " + hex(entityId) + ")";
  EXPECT_OD_ERROR_NAMING(space->appendOdDbEntity(entity.get()), eAlreadyInDb, entityName);
  EXPECT_OD_ERROR_NAMING(other->addOdDbObject(entity.get()), eAlreadyInDb, entityName);
  space.release();
  EXPECT_EQ(entitiesOf(db->getModelSpaceId()), OdDbObjectIdArray{entityId});
  EXPECT_EQ(entity->ownerId(), db->getModelSpaceId());

  OdDbXrecordPtr loaded = OdDbXrecord::createObject();
  const OdDbHandle seed = db->handseed();
  EXPECT_OD_ERROR_NAMING(db->addOdDbObject(loaded.get(), {}, id.getHandle()), eDuplicateKey,
                         hex(id), name);
  EXPECT_FALSE(loaded->isDBRO());
  EXPECT_EQ(db->handseed(), seed);
  EXPECT_OD_ERROR_NAMING(db->addOdDbObject(loaded.get(), other->getModelSpaceId()), eWrongDatabase,
                         "another database");
  EXPECT_FALSE(loaded->isDBRO());
}

TEST_F(DbBadInput, CloningIntoWhatCannotOwnTheCloneIsRefusedWithBothNamed) {
  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  const OdDbHandle seed = db->handseed();
  EXPECT_OD_ERROR_NAMING(
      db->deepCloneObjects(OdDbObjectIdArray{id}, db->getModelSpaceId(), *mapping),
      eInvalidOwnerObject, name, "OdDbBlockTableRecord (handle " + hex(db->getModelSpaceId()));
  EXPECT_OD_ERROR_NAMING(db->deepCloneObjects(OdDbObjectIdArray{id}, OdDbObjectId::kNull, *mapping),
                         eNullObjectId, "without an owner");
  EXPECT_OD_ERROR_NAMING(db->deepCloneObjects(OdDbObjectIdArray{OdDbObjectId::kNull},
                                              db->getNamedObjectsDictionaryId(), *mapping),
                         eNullObjectId, "null");
  OdDbDatabasePtr other = OdDbDatabase::createObject();
  EXPECT_OD_ERROR_NAMING(
      db->deepCloneObjects(OdDbObjectIdArray{id}, other->getNamedObjectsDictionaryId(), *mapping),
      eWrongDatabase, "another database");
  EXPECT_EQ(db->handseed(), seed);
  EXPECT_EQ(mapping->numPairs(), 0u);
}
