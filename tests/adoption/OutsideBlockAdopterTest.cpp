// Adopting a block: every reference keeps its look and gets the state it records, the other
// program's data goes, and a block with anything not understood is left as it was unless a
// partial conversion is asked for.
#include <gmock/gmock.h>

#include "AdoptionTestSupport.h"
#include "adoption/CJbOutsideBlockAdopter.h"
#include "adoption/CJbOutsideBlockReader.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"
#include "platform/dxf/DxfFile.h"
#include "storage/CJbDbCustBlockStorage.h"
#include "support/BlockGeometry.h"

using ::testing::HasSubstr;

class OutsideBlockAdopterTest : public AdoptionTest {
 protected:
  CJbOutsideBlockAdopter::Outcome AdoptOnly(bool partial) {
    const CJbOutsideDrawing drawing(db.get());
    return CJbOutsideBlockAdopter::Adopt(drawing, drawing.Blocks().front(), partial);
  }
  bool IsCustomizable(const OdDbObjectId& block) {
    const CJbDbCustBlockStoragePtr storage =
        CJbDbCustBlockStorage::GetStorage(db.get(), OdDb::kForRead, false);
    return !storage.isNull() && storage->IsBlockCustomizable(block);
  }
  bool HasRepresentation(const OdDbObjectId& reference) {
    const OdDbObjectId dictionary = open<OdDbBlockReference>(reference)->extensionDictionary();
    return !dictionary.isNull() &&
           open<OdDbDictionary>(dictionary)->has(CJbOutsideReference::RecordKey());
  }
};

TEST_F(OutsideBlockAdopterTest, EveryReferenceKeepsItsLookAndGetsTheStateItRecords) {
  Read("acadsharp_dyn_visibility.dxf");
  const OdDbDatabasePtr original = db;
  Read("acadsharp_dyn_visibility.dxf");
  const CJbOutsideDrawing drawing(db.get());
  const OdDbObjectId master = drawing.Blocks().front();
  const std::vector<RecordedReference> recorded = Record(drawing, master);
  const CJbOutsideBlockAdopter::Outcome outcome =
      CJbOutsideBlockAdopter::Adopt(drawing, master, false);
  ASSERT_TRUE(outcome.adopted) << outcome.failure.str();
  EXPECT_EQ(outcome.references.size(), 4u);

  // The other program's data is gone from the definition, its entities and the references.
  EXPECT_FALSE(CJbOutsideBlockReader::IsOutsideBlock(master));
  const OdDbBlockTableRecordPtr definition = open<OdDbBlockTableRecord>(master);
  EXPECT_TRUE(definition->xData("AcDbDynamicBlockGUID").isNull());
  for (OdDbObjectIteratorPtr it = definition->newIterator(); !it->done(); it->step())
    EXPECT_TRUE(it->entity()->xData("AcDbBlockRepETag").isNull());

  const CJbDbCustBlockStoragePtr storage =
      CJbDbCustBlockStorage::GetStorage(db.get(), OdDb::kForRead, false);
  for (const RecordedReference& reference : recorded) {
    SCOPED_TRACE(reference.reference.getHandle().ascii().str());
    EXPECT_FALSE(HasRepresentation(reference.reference));
    EXPECT_EQ(open<OdDbBlockReference>(reference.reference)->blockTableRecord(), reference.block);
    OdDbObjectId registered;
    EXPECT_TRUE(storage->GetMasterBlockId(reference.block, registered));
    EXPECT_EQ(registered, master);
    const OdDbObjectId before = original->getOdDbObjectId(reference.block.getHandle());
    EXPECT_TRUE(CompareBlockGeometry(reference.block, before).same);
    CJbDbCustBlockGraphPtr graph;
    ASSERT_TRUE(storage->GetUpdatedGraph(reference.block, graph));
    for (int id : graph->GetAllNodeIds()) {
      if (const auto visibility = CJbCustBlockVisibilityParameter::cast(graph->GetNode(id).get())) {
        EXPECT_EQ(visibility->GetStateName(visibility->GetCurrentState()),
                  reference.states.front().second.visibilityState);
      }
    }
  }
}

TEST_F(OutsideBlockAdopterTest, APartNotUnderstoodLeavesTheBlockAsItWasUnlessPartial) {
  ReadEdited("acadsharp_dyn_linear.dxf", {{"\nBLOCKSCALEACTION\n", "\nBLOCKSTRETCHACTION\n"}});
  CJbOutsideBlockAdopter::Outcome outcome = AdoptOnly(false);
  EXPECT_FALSE(outcome.adopted);
  ASSERT_EQ(outcome.notConverted.size(), 1u);
  EXPECT_EQ(outcome.notConverted[0].kind, "BLOCKSTRETCHACTION");
  EXPECT_EQ(outcome.notConverted[0].name, "Scale");
  const OdDbObjectId master = outcome.block.blockId;
  EXPECT_TRUE(CJbOutsideBlockReader::IsOutsideBlock(master));
  EXPECT_FALSE(IsCustomizable(master));

  outcome = AdoptOnly(true);
  EXPECT_TRUE(outcome.adopted);
  EXPECT_EQ(outcome.notConverted.size(), 1u);
  EXPECT_EQ(outcome.references.size(), 2u);
  EXPECT_TRUE(IsCustomizable(master));
  EXPECT_FALSE(CJbOutsideBlockReader::IsOutsideBlock(master));
}

TEST_F(OutsideBlockAdopterTest, AReferenceWhoseBlockNoLongerFitsTheDefinitionIsNamed) {
  // *U6 was made before the definition gained an entity.
  ReadEdited("acadsharp_dyn_visibility.dxf",
             {{"AcDbBlockReference\n  2\n*U16\n", "AcDbBlockReference\n  2\n*U6\n"}});
  CJbOutsideBlockAdopter::Outcome outcome = AdoptOnly(false);
  EXPECT_FALSE(outcome.adopted);
  ASSERT_EQ(outcome.notConverted.size(), 1u);
  EXPECT_EQ(outcome.notConverted[0].name, "252");
  EXPECT_THAT(outcome.notConverted[0].reason.str(),
              HasSubstr("anonymous block \"*U6\" holds 4 entities, the definition 5"));

  outcome = AdoptOnly(true);
  EXPECT_TRUE(outcome.adopted);
  EXPECT_EQ(outcome.references.size(), 3u);
  const OdDbObjectId reference = db->getOdDbObjectId(OdDbHandle(0x252));
  EXPECT_FALSE(IsCustomizable(open<OdDbBlockReference>(reference)->blockTableRecord()));
}
