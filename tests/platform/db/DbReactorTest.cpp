#include <string>
#include <vector>

#include "DbTestSupport.h"
#include "platform/rx/OdRxClass.h"

// Records subClose calls next to the reactor notices, so their order can be checked.
class TestTrackedRecord : public OdDbXrecord {
  ODRX_DECLARE_MEMBERS(TestTrackedRecord);

 public:
  static std::vector<std::string>* log;
  bool refuseErase = false;

 protected:
  void subClose() override {
    if (log) log->push_back(isErased() ? "subClose erased" : "subClose");
  }
  OdResult subErase(bool erasing) override { return erasing && refuseErase ? eHasDependents : eOk; }
};
ODRX_CONS_DEFINE_MEMBERS(TestTrackedRecord, OdDbXrecord)
std::vector<std::string>* TestTrackedRecord::log = nullptr;

namespace {
class LogReactor : public OdStaticRxObject<OdDbObjectReactor> {
 public:
  explicit LogReactor(std::vector<std::string>& log) : m_log(log) {}
  void openedForModify(const OdDbObject*) override { m_log.push_back("openedForModify"); }
  void modified(const OdDbObject* object) override {
    // Reactors see the object readable but not writable.
    m_log.push_back(object->isWriteEnabled() ? "modified while writable" : "modified");
  }
  void erased(const OdDbObject*, bool erasing) override {
    m_log.push_back(erasing ? "erased" : "unerased");
  }

 private:
  std::vector<std::string>& m_log;
};
}  // namespace

class DbReactors : public DbTest {
 protected:
  void SetUp() override {
    DbTest::SetUp();
    TestTrackedRecord::rxInit();
    TestTrackedRecord::log = &log;
  }
  void TearDown() override {
    TestTrackedRecord::log = nullptr;
    db.release();
    TestTrackedRecord::rxUninit();
  }

  OdDbObjectId addTracked(const OdString& key) {
    OdDbDictionaryPtr named =
        open<OdDbDictionary>(db->getNamedObjectsDictionaryId(), OdDb::kForWrite);
    OdSmartPtr<TestTrackedRecord> record = TestTrackedRecord::createObject();
    return named->setAt(key, record.get());
  }

  std::vector<std::string> log;
};

TEST_F(DbReactors, CloseNotifiesAfterSubCloseAndOnlyWhenChanged) {
  const OdDbObjectId id = addTracked("R");
  log.clear();
  LogReactor reactor(log);
  open<OdDbObject>(id)->addReactor(&reactor);

  open<OdDbObject>(id);  // read and close: nothing to say
  EXPECT_TRUE(log.empty());

  {
    OdDbXrecordPtr record = open<OdDbXrecord>(id, OdDb::kForWrite);
    record->setFromRbChain(OdResBuf::newRb(1, "a").get());
    record->setFromRbChain(OdResBuf::newRb(1, "b").get());
  }
  EXPECT_EQ(log, (std::vector<std::string>{"openedForModify", "subClose", "modified"}));

  log.clear();
  {
    OdDbObjectPtr record = open<OdDbObject>(id, OdDb::kForWrite);
    record->erase();
  }
  EXPECT_EQ(log, (std::vector<std::string>{"openedForModify", "subClose erased", "erased"}));

  log.clear();
  id.safeOpenObject(OdDb::kForWrite, true)->erase(false);
  EXPECT_EQ(log, (std::vector<std::string>{"openedForModify", "subClose", "unerased"}));

  // downgradeOpen notifies like a close and leaves the object readable.
  log.clear();
  OdDbXrecordPtr record = open<OdDbXrecord>(id, OdDb::kForWrite);
  record->setFromRbChain(OdResBuf::newRb(1, "c").get());
  record->downgradeOpen();
  EXPECT_EQ(log, (std::vector<std::string>{"openedForModify", "subClose", "modified"}));
  record->removeReactor(&reactor);
}

TEST_F(DbReactors, ErasingAnOwnerErasesWhatItOwnsAndUneraseBringsOnlyThatBack) {
  OdDbObjectId dictId, alone, together, refused;
  {
    OdDbDictionaryPtr named =
        open<OdDbDictionary>(db->getNamedObjectsDictionaryId(), OdDb::kForWrite);
    dictId = named->setAt("GROUP", OdDbDictionary::createObject().get());
  }
  {
    OdDbDictionaryPtr group = open<OdDbDictionary>(dictId, OdDb::kForWrite);
    alone = group->setAt("ALONE", OdDbXrecord::createObject().get());
    together = group->setAt("TOGETHER", OdDbXrecord::createObject().get());
  }
  open<OdDbObject>(alone, OdDb::kForWrite)->erase();
  open<OdDbObject>(dictId, OdDb::kForWrite)->erase();
  EXPECT_TRUE(together.isErased());
  dictId.safeOpenObject(OdDb::kForWrite, true)->erase(false);
  EXPECT_FALSE(together.isErased());
  EXPECT_TRUE(alone.isErased());  // was erased on its own

  refused = addTracked("REFUSED");
  OdSmartPtr<TestTrackedRecord> record = open<TestTrackedRecord>(refused, OdDb::kForWrite);
  record->refuseErase = true;
  EXPECT_EQ(record->erase(), eHasDependents);
  EXPECT_FALSE(record->isErased());
}

TEST_F(DbReactors, PersistentReactorsHearThroughTheirObject) {
  // A dictionary as persistent reactor of a record: its default notices accept the call.
  const OdDbObjectId watched = addTracked("WATCHED");
  const OdDbObjectId watcher = db->getNamedObjectsDictionaryId();
  open<OdDbObject>(watched, OdDb::kForWrite)->addPersistentReactor(watcher);
  EXPECT_EQ(open<OdDbObject>(watched)->getPersistentReactors(), OdDbObjectIdArray{watcher});
  // The watcher is open elsewhere: the notice is skipped, the close still succeeds.
  OdDbObjectPtr busy = watcher.safeOpenObject(OdDb::kForWrite);
  open<OdDbXrecord>(watched, OdDb::kForWrite)->setFromRbChain(OdResBuf::newRb(1, "x").get());
  busy.release();
  open<OdDbObject>(watched, OdDb::kForWrite)->removePersistentReactor(watcher);
  EXPECT_TRUE(open<OdDbObject>(watched)->getPersistentReactors().isEmpty());
}
