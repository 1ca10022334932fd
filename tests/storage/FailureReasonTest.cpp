// Failures say why: storage and editor-helper operations that cannot do what they are asked name
// the block or reference and what was missing, in the user's language, and an edit broken off by
// an exception or cancelled leaves the reference as it was.
#include <stdexcept>

#include "StorageTestSupport.h"
#include "parameters/grips/CJbCustBlockGrip.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/host/CJbTranslator.h"
#include "storage/CJbCustBlockEditorHelper.h"

namespace {
// Knows one message in German, so that a test sees which text went through translation.
class GermanTranslator : public CJbTranslator {
 public:
  OdString Translate(const char* context, const char* sourceText) const override {
    if (OdString(context) == OdString("customizable_blocks") &&
        OdString(sourceText) == OdString("The blocks \"%1\" and \"%2\" are not both in the "
                                         "storage's drawing."))
      return "Die Bl\xC3\xB6"
             "cke \"%2\" und \"%1\" liegen nicht beide in der Zeichnung.";
    return sourceText;
  }
};

OdDbObjectId blockOfOtherDrawing(const OdDbDatabasePtr& other, const OdString& name) {
  OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
  block->setName(name);
  return OdSmartPtr<OdDbBlockTable>(other->getBlockTableId().safeOpenObject(OdDb::kForWrite))
      ->add(block.get());
}

std::size_t blockCount(OdDbDatabase* database) {
  return OdSmartPtr<OdDbBlockTable>(database->getBlockTableId().safeOpenObject())
      ->recordIds()
      .length();
}
}  // namespace

class FailureReasonTest : public StorageTest {
 protected:
  void SetUp() override {
    StorageTest::SetUp();
    door = addDoor("Door");
    plain = addBlock("Plain");
  }

  OdDbObjectId plain;
};

TEST_F(FailureReasonTest, StorageOperationsNameTheBlockAndWhatIsWrong) {
  CJbDbCustBlockStoragePtr writable = storage(OdDb::kForWrite);
  OdDbObjectId id;
  CJbCustBlockResult result = writable->GetMasterBlockId(plain, id);
  EXPECT_FALSE(result);
  EXPECT_EQ(result.Code(), eKeyNotFound);
  EXPECT_EQ(result.Reason(), OdString("The block \"Plain\" is not customizable."));

  result = writable->AppendMasterBlock(door, id);
  EXPECT_EQ(result.Code(), eDuplicateKey);
  EXPECT_EQ(result.Reason(), OdString("The block \"Door\" is customizable already."));

  OdSmartPtr<OdDbLine> line = OdDbLine::createObject();
  const OdDbObjectId lineId = open<OdDbBlockTableRecord>(db->getModelSpaceId(), OdDb::kForWrite)
                                  ->appendOdDbEntity(line.get());
  OdDbObjectId graphId;
  result = writable->AppendMasterBlock(lineId, graphId);
  EXPECT_EQ(result.Code(), eNotThatKindOfClass);
  EXPECT_EQ(result.Reason(), "\"#" + lineId.getHandle().ascii() + "\" is no block definition.");
  EXPECT_TRUE(graphId.isNull());

  // An instance is no master; a block of another drawing cannot join this storage.
  const OdDbObjectId reference = addReferences(1, 1)[0];
  writable = storage(OdDb::kForWrite);
  OdArray<OdDbObjectId> instances;
  result = writable->GetAllBlockInstancesForMasterBlock(blockOf(reference), instances);
  EXPECT_EQ(result.Code(), eNotApplicable);
  EXPECT_TRUE(result.Reason().startsWith("The block \"*U"));
  OdDbDatabasePtr other = OdDbDatabase::createObject();
  result = writable->SetCustomData(door, blockOfOtherDrawing(other, "Foreign"), OdResBufPtr());
  EXPECT_EQ(result.Code(), eWrongDatabase);
  EXPECT_EQ(result.Reason(),
            OdString("The blocks \"Door\" and \"Foreign\" are not both in the storage's drawing."));
  // Success carries no reason.
  EXPECT_TRUE(writable->GetMasterBlockId(door, id));
  EXPECT_TRUE(writable->GetMasterBlockId(door, id).Reason().isEmpty());
}

TEST_F(FailureReasonTest, ReasonsAreTranslatedBeforeTheNamesGoIn) {
  GermanTranslator german;
  CJbTranslator* previous = CJbTranslator::Set(&german);
  // A name that looks like a placeholder stays as it is.
  const OdDbObjectId odd = addBlock("%2");
  OdDbDatabasePtr other = OdDbDatabase::createObject();
  const CJbCustBlockResult result =
      storage(OdDb::kForWrite)
          ->SetCustomData(odd, blockOfOtherDrawing(other, "Foreign"), OdResBufPtr());
  CJbTranslator::Set(previous);
  EXPECT_EQ(result.Reason(), OdString("Die Bl\xC3\xB6"
                                      "cke \"Foreign\" und \"%2\" liegen nicht "
                                      "beide in der Zeichnung."));
  EXPECT_OD_ERROR(result.ThrowIfFailed(), eWrongDatabase);
}

TEST_F(FailureReasonTest, TheEditorHelperSaysWhyThereIsNoGraphOrNothingToCommit) {
  const OdDbObjectId reference = addReference(db->getModelSpaceId(), plain);
  const OdString handle = reference.getHandle().ascii();
  CJbCustBlockEditorHelper helper(reference);
  CJbCustBlockResult result;
  EXPECT_TRUE(helper.GetGraph(OdDb::kForWrite, result).isNull());
  EXPECT_EQ(result.Reason(), "The block reference " + handle + " shows no customizable block.");
  EXPECT_TRUE(helper.GetGraph(OdDb::kForRead, result).isNull());
  EXPECT_EQ(result.Code(), eNotApplicable);

  CJbCustBlockEditorHelper reading(addReferences(1, 0)[0]);
  EXPECT_FALSE(reading.GetGraph(OdDb::kForRead, result).isNull());
  EXPECT_TRUE(result);
  result = reading.Commit();
  EXPECT_EQ(result.Code(), eNotApplicable);
  EXPECT_NE(result.Reason().str().find("has nothing to commit."), std::string::npos);
}

TEST_F(FailureReasonTest, ACancelledOrInterruptedEditLeavesTheReferenceAsItWas) {
  const std::vector<OdDbObjectId> references = addReferences(2, 0);
  const std::size_t blocks = blockCount(db.get());
  const auto widen = [&](CJbCustBlockEditorHelper& helper) {
    CJbDbCustBlockGraphPtr graph = helper.GetGraph(OdDb::kForWrite);
    ASSERT_FALSE(graph.isNull());
    ASSERT_NE(helper.GetBlockId(), door);
    CJbCustBlockGrip::cast(graph->GetNode(rightGrip).get())
        ->SetDisplayPosition(OdGePoint3d(20, 0, 0));
  };
  {
    CJbCustBlockEditorHelper helper(references[0]);
    widen(helper);
    helper.Cancel();
    EXPECT_EQ(helper.GetBlockId(), door);
  }
  EXPECT_EQ(blockOf(references[0]), door);
  EXPECT_EQ(blockCount(db.get()), blocks);

  try {
    CJbCustBlockEditorHelper helper(references[1]);
    widen(helper);
    throw std::runtime_error("the host gave up half-way");
  } catch (const std::runtime_error&) {
  }
  EXPECT_EQ(blockOf(references[1]), door);
  EXPECT_EQ(blockCount(db.get()), blocks);
  EXPECT_TRUE(SameFrame(frameOf(door), DoorFrame(10)));
  OdArray<OdDbObjectId> instances;
  EXPECT_TRUE(storage()->GetAllBlockInstancesForMasterBlock(door, instances));
  EXPECT_TRUE(instances.isEmpty());

  // A cancel after a commit keeps what was committed.
  CJbCustBlockEditorHelper helper(references[0]);
  widen(helper);
  EXPECT_TRUE(helper.Commit());
  helper.Cancel();
  EXPECT_NE(blockOf(references[0]), door);
  EXPECT_TRUE(SameFrame(frameOf(blockOf(references[0])), DoorFrame(20)));
}
