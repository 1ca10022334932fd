#include "DbTestSupport.h"
#include "platform/db/symtables/OdDbRegAppTable.h"

class DbDictionaries : public DbTest {
 protected:
  OdDbDictionaryPtr named(OdDb::OpenMode mode = OdDb::kForWrite) {
    return open<OdDbDictionary>(db->getNamedObjectsDictionaryId(), mode);
  }
};

TEST_F(DbDictionaries, KeysIgnoreCaseKeepOrderAndEntriesAreOwned) {
  OdDbDictionaryPtr dict = named();
  const OdDbObjectId b = dict->setAt("beta", OdDbXrecord::createObject().get());
  const OdDbObjectId a = dict->setAt("Alpha", OdDbXrecord::createObject().get());
  EXPECT_EQ(dict->getAt("ALPHA"), a);
  EXPECT_EQ(dict->nameAt(b), "beta");
  EXPECT_EQ(open<OdDbObject>(a)->ownerId(), dict->objectId());
  std::vector<std::string> keys;
  for (OdDbDictionaryIteratorPtr it = dict->newIterator(); !it->done(); it->next())
    keys.push_back(it->name().str());
  EXPECT_EQ(keys, (std::vector<std::string>{"Alpha", "beta"}));

  // Replacing erases the old entry unless told otherwise; removing only gives it up.
  const OdDbObjectId replacement = dict->setAt("BETA", OdDbXrecord::createObject().get());
  EXPECT_TRUE(b.isErased());
  const OdDbObjectId kept = dict->setAt("alpha", OdDbXrecord::createObject().get(), false);
  EXPECT_FALSE(a.isErased());
  EXPECT_EQ(open<OdDbObject>(a)->ownerId(), OdDbObjectId::kNull);
  EXPECT_EQ(dict->remove("beta"), eOk);
  EXPECT_EQ(dict->remove("beta"), eKeyNotFound);
  EXPECT_FALSE(replacement.isErased());
  EXPECT_EQ(open<OdDbObject>(replacement)->ownerId(), OdDbObjectId::kNull);
  EXPECT_EQ(dict->numEntries(), 1u);
  EXPECT_EQ(dict->getAt("ALPHA"), kept);

  EXPECT_OD_ERROR(dict->setAt("a|b", OdDbXrecord::createObject().get()), eInvalidInput);
  EXPECT_OD_ERROR(dict->setAt("", OdDbXrecord::createObject().get()), eInvalidInput);
  OdDbDatabasePtr other = OdDbDatabase::createObject();
  OdDbXrecordPtr foreign = OdDbXrecord::createObject();
  other->addOdDbObject(foreign.get());
  EXPECT_OD_ERROR(dict->setAt("F", foreign.get()), eWrongDatabase);
  EXPECT_EQ(dict->numEntries(), 1u);
  dict.release();
  EXPECT_OD_ERROR(named(OdDb::kForRead)->setAt("x", OdDbXrecord::createObject().get()),
                  eNotOpenForWrite);
}

TEST_F(DbDictionaries, ExtensionDictionaryIsReleasedOnlyWhenEmpty) {
  OdDbXrecordPtr owner = OdDbXrecord::createObject();
  named()->setAt("OWNER", owner.get());
  owner->createExtensionDictionary();
  const OdDbObjectId xdictId = owner->extensionDictionary();
  owner->createExtensionDictionary();  // once is enough
  EXPECT_EQ(owner->extensionDictionary(), xdictId);
  EXPECT_EQ(open<OdDbObject>(xdictId)->ownerId(), owner->objectId());
  const OdDbObjectId entry =
      open<OdDbDictionary>(xdictId, OdDb::kForWrite)->setAt("K", OdDbXrecord::createObject().get());

  EXPECT_EQ(owner->releaseExtensionDictionary(), eContainerNotEmpty);
  EXPECT_EQ(owner->extensionDictionary(), xdictId);
  open<OdDbDictionary>(xdictId, OdDb::kForWrite)->remove("K");
  EXPECT_EQ(owner->releaseExtensionDictionary(), eOk);
  EXPECT_TRUE(owner->extensionDictionary().isNull());
  EXPECT_TRUE(xdictId.isErased());
  EXPECT_FALSE(entry.isErased());

  // Erasing the owner takes its extension dictionary and entries along.
  owner->createExtensionDictionary();
  const OdDbObjectId second = owner->extensionDictionary();
  const OdDbObjectId inner =
      open<OdDbDictionary>(second, OdDb::kForWrite)->setAt("K", OdDbXrecord::createObject().get());
  owner->erase();
  EXPECT_TRUE(second.isErased());
  EXPECT_TRUE(inner.isErased());
}

TEST_F(DbDictionaries, ExtendedDataIsReplacedAndClearedPerApplication) {
  OdDbXrecordPtr object = OdDbXrecord::createObject();
  named()->setAt("X", object.get());
  OdResBufPtr chain = OdResBuf::newRb(1001, "APP_A");
  chain->setNext(OdResBuf::newRb(1000, "first"));
  chain->last()->setNext(OdResBuf::newRb(1001, "APP_B"));
  chain->last()->setNext(OdResBuf::newRb(1070, 7));
  object->setXData(chain.get());

  OdResBufPtr a = object->xData("app_a");
  ASSERT_FALSE(a.isNull());
  EXPECT_EQ(a->getString(), "APP_A");
  EXPECT_EQ(a->next()->getString(), "first");
  EXPECT_TRUE(a->next()->next().isNull());  // only that application
  OdSmartPtr<OdDbRegAppTable> apps = open<OdDbRegAppTable>(db->getRegAppTableId());
  EXPECT_TRUE(apps->has("APP_A"));
  EXPECT_TRUE(apps->has("APP_B"));
  apps.release();

  // A chain holding only an application's name removes that application alone.
  object->setXData(OdResBuf::newRb(1001, "APP_A").get());
  EXPECT_TRUE(object->xData("APP_A").isNull());
  ASSERT_FALSE(object->xData("APP_B").isNull());
  EXPECT_EQ(object->xData("APP_B")->next()->getInt16(), 7);

  // A bad chain changes nothing.
  OdResBufPtr bad = OdResBuf::newRb(1001, "APP_B");
  bad->setNext(OdResBuf::newRb(10, OdGePoint3d(1, 2, 3)));
  EXPECT_OD_ERROR(object->setXData(bad.get()), eInvalidResBuf);
  EXPECT_OD_ERROR(object->setXData(OdResBuf::newRb(1000, "no app").get()), eInvalidResBuf);
  EXPECT_EQ(object->xData("APP_B")->next()->getInt16(), 7);
}
