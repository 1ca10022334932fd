#include "DbTestSupport.h"

class DbOpenClose : public DbTest {};

TEST_F(DbOpenClose, ReadersShareWritersExcludeAndTheLastHolderCloses) {
  const OdDbObjectId id = db->getNamedObjectsDictionaryId();
  OdDbObjectPtr first = id.safeOpenObject();
  OdDbObjectPtr second = id.safeOpenObject();
  EXPECT_EQ(first.get(), second.get());
  EXPECT_TRUE(first->isReadEnabled());
  EXPECT_FALSE(first->isWriteEnabled());
  EXPECT_OD_ERROR(first->assertWriteEnabled(), eNotOpenForWrite);

  OdDbObjectPtr writer;
  EXPECT_EQ(id.openObject(writer, OdDb::kForWrite), eWasOpenForRead);
  EXPECT_OD_ERROR(first->upgradeOpen(), eWasOpenForRead);  // two readers
  second.release();
  first->upgradeOpen();  // the only reader left
  EXPECT_TRUE(first->isWriteEnabled());
  EXPECT_EQ(id.openObject(writer, OdDb::kForRead), eWasOpenForWrite);
  EXPECT_EQ(id.openObject(writer, OdDb::kForWrite), eWasOpenForWrite);
  first->downgradeOpen();
  EXPECT_EQ(first->openMode(), OdDb::kForRead);

  OdDbObject* raw = first.get();
  first.release();
  EXPECT_EQ(raw->openMode(), OdDb::kNotOpen);
  EXPECT_OD_ERROR(raw->assertReadEnabled(), eNotOpenForRead);
  EXPECT_TRUE(db->openObject(id, OdDb::kForWrite)->isWriteEnabled());
}

TEST_F(DbOpenClose, ReadersAreBoundedAndBadIdsFailPrecisely) {
  const OdDbObjectId id = db->getNamedObjectsDictionaryId();
  std::vector<OdDbObjectPtr> readers;
  for (int i = 0; i < OdDbObject::kMaxReaders; ++i)
    readers.push_back(id.safeOpenObject());
  OdDbObjectPtr extra;
  EXPECT_EQ(id.openObject(extra), eAtMaxReaders);
  readers.clear();

  EXPECT_OD_ERROR(OdDbObjectId().safeOpenObject(), eNullObjectId);
  OdDbDatabasePtr other = OdDbDatabase::createObject();
  OdDbObjectPtr foreign;
  EXPECT_EQ(other->openObject(foreign, id), eWrongDatabase);
  try {
    other->openObject(id);
    ADD_FAILURE() << "a foreign id opened";
  } catch (const OdError& error) {
    EXPECT_EQ(error.code(), eWrongDatabase);
    EXPECT_NE(error.description().find("OdDbDictionary (handle"), std::string::npos)
        << error.description();
  }
  const OdDbObjectId unknown = db->getOdDbObjectId(OdDbHandle(0x7777), true);
  EXPECT_EQ(unknown.openObject(foreign), eNullObjectId);
}

TEST_F(DbOpenClose, ErasedObjectsNeedOpenErasedAndPurgeEndsThem) {
  OdDbXrecordPtr record = OdDbXrecord::createObject();
  OdDbObjectId id;
  {
    OdDbDictionaryPtr named =
        open<OdDbDictionary>(db->getNamedObjectsDictionaryId(), OdDb::kForWrite);
    id = named->setAt("DATA", record.get());
  }
  EXPECT_TRUE(record->isNewObject());
  EXPECT_TRUE(record->isWriteEnabled());
  EXPECT_EQ(record->erase(), eOk);
  EXPECT_EQ(record->erase(), eWasErased);
  record.release();

  OdDbObjectPtr object;
  EXPECT_EQ(id.openObject(object), eWasErased);
  EXPECT_EQ(id.openObject(object, OdDb::kForWrite, true), eOk);
  EXPECT_FALSE(object->isNewObject());
  EXPECT_EQ(object->erase(false), eOk);
  EXPECT_EQ(object->erase(false), eWasNotErased);
  EXPECT_EQ(object->erase(true), eOk);
  EXPECT_EQ(db->purgeErased(), 0);  // still open
  object.release();
  EXPECT_EQ(db->purgeErased(), 1);
  EXPECT_EQ(id.openObject(object, OdDb::kForRead, true), ePermanentlyErased);
  EXPECT_TRUE(id.isErased());
  EXPECT_EQ(db->getOdDbObjectId(id.getHandle()), id);
}

TEST_F(DbOpenClose, HandlesAreUniqueAndAddingIsChecked) {
  const OdDbHandle seed = db->handseed();
  OdDbXrecordPtr first = OdDbXrecord::createObject();
  const OdDbObjectId firstId = db->addOdDbObject(first.get());
  EXPECT_EQ(firstId.getHandle(), seed);
  EXPECT_EQ(db->handseed().value(), seed.value() + 1);
  EXPECT_OD_ERROR(db->addOdDbObject(first.get()), eAlreadyInDb);

  OdDbXrecordPtr loaded = OdDbXrecord::createObject();
  EXPECT_OD_ERROR(db->addOdDbObject(loaded.get(), {}, seed), eDuplicateKey);
  EXPECT_FALSE(loaded->isDBRO());  // nothing half-done
  // A forward reference is filled by the object that comes with its handle.
  const OdDbObjectId forward = db->getOdDbObjectId(OdDbHandle(0x500), true);
  EXPECT_EQ(db->addOdDbObject(loaded.get(), {}, OdDbHandle(0x500)), forward);
  EXPECT_EQ(db->handseed().value(), 0x501u);
  EXPECT_OD_ERROR(db->setHandseed(OdDbHandle(0x100)), eInvalidInput);

  OdDbDatabasePtr other = OdDbDatabase::createObject();
  OdDbXrecordPtr stray = OdDbXrecord::createObject();
  EXPECT_OD_ERROR(other->addOdDbObject(stray.get(), firstId), eWrongDatabase);
  EXPECT_OD_ERROR(first->setOwnerId(other->getNamedObjectsDictionaryId()), eWrongDatabase);
  EXPECT_EQ(first->ownerId(), OdDbObjectId::kNull);
}

TEST_F(DbOpenClose, FreeObjectsSkipChecksAndOutliveTheirDatabase) {
  OdDbXrecordPtr free = OdDbXrecord::createObject();
  EXPECT_TRUE(free->isWriteEnabled());
  free->assertWriteEnabled();
  EXPECT_EQ(free->erase(), eNoDatabase);

  OdDbXrecordPtr kept = OdDbXrecord::createObject();
  db->addOdDbObject(kept.get());
  db.release();  // the database goes while an object is still held
  EXPECT_FALSE(kept->isDBRO());
  kept->assertWriteEnabled();
}
