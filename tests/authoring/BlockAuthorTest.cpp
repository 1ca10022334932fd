// Authoring a whole block: a new name only, and a finished block is a master whose graph the
// storage owns, bound to the block, shown as authored and editable on a reference.
#include "AuthoringTestSupport.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "authoring/CJbCustBlockAuthor.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "storage/CJbCustBlockEditorHelper.h"
#include "storage/CJbDbCustBlockStorage.h"

class BlockAuthorTest : public AuthoringTest {};

TEST_F(BlockAuthorTest, AFinishedBlockIsAnEditableMasterShownAsAuthored) {
  CJbCustBlockAuthor author(db.get(), "Shelf");
  const OdDbObjectId board = author.AddRectangle(OdGePoint3d::kOrigin, OdGePoint3d(10, 1, 0));
  const OdDbObjectId bracket = author.AddLine(OdGePoint3d(1, 0, 0), OdGePoint3d(1, -2, 0));
  auto length = author.AppendParameter<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
      "Length", {OdGePoint3d::kOrigin, OdGePoint3d(10, 0, 0)}, {1});
  auto stretch = author.AppendAction<CJbCustBlockStretchAction>(length.get(), 1, {board});
  CJbCustBlockGraphAuthor::SetStretchFrame(stretch.get(), 0, OdGePoint3d(9, -1, 0),
                                           OdGePoint3d(11, 2, 0));
  // A state that hides the bracket is the first one, so the master shows without it.
  OdSmartPtr<CJbCustBlockVisibilityParameter> look(new CJbCustBlockVisibilityParameter);
  author.Graph()->AppendNode(look);
  look->AddState("Bare", {bracket}, {});
  look->AddState("Braced", {}, {});
  look->ForceHideEntitiesForDefaultState();
  const int lengthId = length->GetElementId();
  const int gripId = length->GetGrip(1);
  const OdDbObjectId shelf = author.Finish();
  EXPECT_EQ(shelf, author.BlockId());

  CJbDbCustBlockStoragePtr storage =
      CJbDbCustBlockStorage::GetStorage(db.get(), OdDb::kForRead, false);
  ASSERT_FALSE(storage.isNull());
  EXPECT_TRUE(storage->IsBlockMaster(shelf));
  OdDbObjectId graphId;
  ASSERT_TRUE(storage->GetMasterBlockGraphId(shelf, graphId));
  CJbDbCustBlockGraphPtr graph = open<CJbDbCustBlockGraph>(graphId);
  EXPECT_EQ(graph->ownerId(), storage->objectId());
  EXPECT_EQ(graph->GetBlockDefinitionId(), shelf);
  EXPECT_FALSE(open<OdDbEntity>(bracket)->visibility() == OdDb::kVisible);
  graph.release();
  storage.release();

  const OdDbObjectId reference = addReference(db->getModelSpaceId(), shelf);
  {
    CJbCustBlockEditorHelper helper(reference);
    CJbDbCustBlockGraphPtr edited = helper.GetGraph(OdDb::kForWrite);
    ASSERT_FALSE(edited.isNull());
    CJbCustBlockGrip::cast(edited->GetNode(gripId).get())
        ->SetDisplayPosition(OdGePoint3d(14, 0, 0));
    ASSERT_TRUE(helper.Commit());
    EXPECT_NEAR(
        CJbCustBlockParameter::cast(edited->GetNode(lengthId).get())->GetValue(0)->getDouble(), 14,
        1e-9);
  }
  OdDbObjectIteratorPtr it =
      open<OdDbBlockTableRecord>(open<OdDbBlockReference>(reference)->blockTableRecord())
          ->newIterator();
  const OdSmartPtr<OdDbPolyline> stretched = OdDbPolyline::cast(it->getObject().get());
  ASSERT_FALSE(stretched.isNull());
  EXPECT_TRUE(stretched->getPoint2dAt(1).isEqualTo(OdGePoint2d(14, 0)));
  EXPECT_TRUE(open<OdDbPolyline>(board)->getPoint2dAt(1).isEqualTo(OdGePoint2d(10, 0)));
}

TEST_F(BlockAuthorTest, ANameTakenAlreadyIsRefused) {
  addBlock("Shelf");
  EXPECT_OD_ERROR_NAMING(CJbCustBlockAuthor(db.get(), "Shelf"), eDuplicateKey, "\"Shelf\"");
}
