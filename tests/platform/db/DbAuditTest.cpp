// Audit: what each object checks, counts of errors found and fixed, and that only a fixing audit
// changes anything.
#include "DbTestSupport.h"
#include "platform/db/OdDbAuditInfo.h"
#include "platform/db/symtables/OdDbLayerTable.h"
#include "platform/db/symtables/OdDbLayerTableRecord.h"

namespace {
class ModifiedCounter : public OdDbObjectReactor {
 public:
  void modified(const OdDbObject*) override { ++count; }
  void addRef() override {}
  void release() override {}
  int count = 0;
};
}  // namespace

// A block with three entities: one on a layer that gets erased, one whose owner changes to
// model space behind the block's back, one sound; and an xrecord whose owner is purged.
class DbAudit : public DbTest {
 protected:
  void SetUp() override {
    DbTest::SetUp();
    {
      OdSmartPtr<OdDbLayerTable> layers =
          open<OdDbLayerTable>(db->getLayerTableId(), OdDb::kForWrite);
      OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
      layer->setName("Gone");
      gone = layers->add(layer.get());
    }
    block = addBlock("Audited");
    onGoneLayer = addReference(block, inner = addBlock("Inner"));
    open<OdDbEntity>(onGoneLayer, OdDb::kForWrite)->setLayer(gone);
    strayed = addReference(block, inner);
    sound = addReference(block, inner);
    open<OdDbObject>(strayed, OdDb::kForWrite)->setOwnerId(db->getModelSpaceId());
    open<OdDbObject>(gone, OdDb::kForWrite)->erase();

    OdDbXrecordPtr parent = OdDbXrecord::createObject();
    const OdDbObjectId parentId = db->addOdDbObject(parent.get());
    parent.release();
    OdDbXrecordPtr orphan = OdDbXrecord::createObject();
    orphanId = db->addOdDbObject(orphan.get(), parentId);
    orphan.release();
    open<OdDbObject>(parentId, OdDb::kForWrite)->erase();
    db->purgeErased();
  }

  OdDbObjectId gone, block, inner, onGoneLayer, strayed, sound, orphanId;
};

TEST_F(DbAudit, CheckingReportsEachErrorAndChangesNothing) {
  ModifiedCounter counter;
  open<OdDbObject>(onGoneLayer)->addReactor(&counter);
  OdDbAuditInfo info(false);
  db->auditDatabase(&info);
  EXPECT_EQ(info.numErrors(), 3);
  EXPECT_EQ(info.numFixes(), 0);
  ASSERT_EQ(info.errors().size(), 3u);
  std::vector<std::string> objects;
  for (const OdDbAuditInfo::Error& error : info.errors())
    objects.push_back(error.object.str());
  const auto names = [&](const OdDbObjectId& id) {
    return std::find(objects.begin(), objects.end(), open<OdDbObject>(id)->describe().str()) !=
           objects.end();
  };
  EXPECT_TRUE(names(onGoneLayer));
  EXPECT_TRUE(names(block));
  EXPECT_TRUE(names(orphanId));

  EXPECT_EQ(open<OdDbEntity>(onGoneLayer)->layerId(), gone);
  EXPECT_EQ(entitiesOf(block), (OdDbObjectIdArray{onGoneLayer, strayed, sound}));
  EXPECT_FALSE(open<OdDbObject>(orphanId)->ownerId().isNull());
  EXPECT_EQ(counter.count, 0);  // a check-only audit does not modify
  open<OdDbObject>(onGoneLayer)->removeReactor(&counter);
}

TEST_F(DbAudit, FixingRepairsCountsAndLeavesNothingForASecondAudit) {
  ModifiedCounter counter;
  open<OdDbObject>(onGoneLayer)->addReactor(&counter);
  OdDbAuditInfo info(true);
  db->auditDatabase(&info);
  EXPECT_EQ(info.numErrors(), 3);
  EXPECT_EQ(info.numFixes(), 3);
  EXPECT_EQ(counter.count, 1);
  open<OdDbObject>(onGoneLayer)->removeReactor(&counter);

  EXPECT_EQ(open<OdDbEntity>(onGoneLayer)->layerId(), db->getLayerZeroId());
  EXPECT_EQ(entitiesOf(block), (OdDbObjectIdArray{onGoneLayer, sound}));
  EXPECT_EQ(open<OdDbObject>(strayed)->ownerId(), db->getModelSpaceId());
  EXPECT_TRUE(open<OdDbObject>(orphanId)->ownerId().isNull());

  OdDbAuditInfo again(true);
  db->auditDatabase(&again);
  EXPECT_EQ(again.numErrors(), 0);
  EXPECT_EQ(again.numFixes(), 0);
  EXPECT_OD_ERROR(db->auditDatabase(nullptr), eNullPtr);
}

TEST_F(DbAudit, ObjectsAuditOnTheirOwnAndSkipWhatIsErased) {
  // An extension dictionary link that leads to something else than a dictionary owned by the
  // object is dropped.
  OdDbObjectId linked;
  {
    OdDbXrecordPtr target = OdDbXrecord::createObject();
    const OdDbObjectId targetId = db->addOdDbObject(target.get());
    target.release();
    OdDbXrecordPtr record = OdDbXrecord::createObject();
    OdDbResBufDxfFilerPtr filer = OdDbResBufDxfFiler::createObject(
        nullptr, chainOf({OdResBuf::newRb(102, "{ACAD_XDICTIONARY"), OdResBuf::newRb(360, targetId),
                          OdResBuf::newRb(102, "}"), OdResBuf::newRb(330, OdDbObjectId::kNull),
                          OdResBuf::newRb(100, "AcDbXrecord")}));
    ASSERT_EQ(record->dxfIn(filer.get()), eOk);
    ASSERT_EQ(record->extensionDictionary(), targetId);
    linked = db->addOdDbObject(record.get());
  }
  OdDbAuditInfo check(false);
  open<OdDbObject>(linked, OdDb::kForWrite)->audit(&check);
  EXPECT_EQ(check.numErrors(), 1);
  EXPECT_FALSE(open<OdDbObject>(linked)->extensionDictionary().isNull());
  OdDbAuditInfo fix(true);
  open<OdDbObject>(linked, OdDb::kForWrite)->audit(&fix);
  EXPECT_EQ(fix.numFixes(), 1);
  EXPECT_TRUE(open<OdDbObject>(linked)->extensionDictionary().isNull());

  // Erased objects are not audited.
  open<OdDbObject>(block, OdDb::kForWrite)->erase();
  open<OdDbObject>(orphanId, OdDb::kForWrite)->erase();
  OdDbAuditInfo info(false);
  db->auditDatabase(&info);
  EXPECT_EQ(info.numErrors(), 0);
}
