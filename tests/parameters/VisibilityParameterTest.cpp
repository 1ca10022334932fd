// Visibility states: switching shows what the old state hid and hides what the new one hides, in
// entities and elements alike; names stay unique and non-empty and held indices follow the states
// they name; an instance keeps its state by name; states survive DWG and DXF filing.
#include <gtest/gtest.h>

#include "authoring/CJbCustBlockGraphAuthor.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "core/CJbDbCustBlockGraph.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"
#include "parameters/grips/CJbCustBlockVisibilityGrip.h"
#include "platform/db/DbTestSupport.h"
#include "platform/db/OdDbAuditInfo.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/filers/OdDbMemoryDwgFiler.h"
#include "platform/dxf/DxfFile.h"

class VisibilityTest : public DbTest {
 protected:
  static void SetUpTestSuite() {
    CJbCustBlockCoreClasses::RxInit();
    CJbCustBlockParameterClasses::RxInit();
  }
  static void TearDownTestSuite() {
    CJbCustBlockParameterClasses::RxUninit();
    CJbCustBlockCoreClasses::RxUninit();
  }

  void SetUp() override {
    DbTest::SetUp();
    block = addBlock("Door");
    leafOpen = addLine(0);
    leafClosed = addLine(1);
    swing = addLine(2);
    frame = addLine(3);
    visibility = new CJbCustBlockVisibilityParameter;
    graph->AppendNode(visibility);
    width = new CJbCustBlockLinearParameter;
    graph->AppendNode(width);
    visibility->AddState("Open", {leafClosed, swing}, {});
    visibility->AddState("Closed", {leafOpen, swing}, {width->GetElementId()});
    visibility->AddState("Frame only", {leafOpen, leafClosed, swing}, {});
  }

  OdDbObjectId addLine(double y) {
    OdSmartPtr<OdDbLine> entity = OdDbLine::createObject();
    entity->setEndPoint(OdGePoint3d(1, y, 0));
    return open<OdDbBlockTableRecord>(block, OdDb::kForWrite)->appendOdDbEntity(entity.get());
  }

  bool shown(const OdDbObjectId& id) {
    return open<OdDbEntity>(id)->visibility() == OdDb::kVisible;
  }

  // Switches to `state` and evaluates in `mode` for the block or reference `in`.
  bool switchTo(int state, int mode = 0, const OdDbObjectId& in = OdDbObjectId::kNull) {
    if (!visibility->SetValue(0, OdResBuf::newRb(OdResBuf::kRtInt32, state))) return false;
    CJbDbCustBlockGraphEvaluationContextPtr context(
        new CJbDbCustBlockGraphEvaluationContext(mode, in));
    const bool evaluated = visibility->Evaluate(context.get());
    return visibility->EndEvaluate(context.get()) && evaluated;
  }

  CJbDbCustBlockGraphPtr graph = CJbDbCustBlockGraph::createObject();
  OdDbObjectId block, leafOpen, leafClosed, swing, frame;
  CJbCustBlockVisibilityParameterPtr visibility;
  CJbCustBlockLinearParameterPtr width;
};

TEST_F(VisibilityTest, SwitchingShowsWhatTheOldStateHidAndHidesTheNew) {
  visibility->ForceHideEntitiesForDefaultState();
  EXPECT_FALSE(shown(leafClosed));
  EXPECT_TRUE(shown(leafOpen));
  EXPECT_FALSE(visibility->NeedEvaluate());

  ASSERT_TRUE(switchTo(1));
  EXPECT_TRUE(shown(leafClosed));
  EXPECT_FALSE(shown(leafOpen));
  EXPECT_FALSE(shown(swing));  // hidden in both states
  EXPECT_TRUE(shown(frame));
  EXPECT_FALSE(width->IsVisible());
  EXPECT_EQ(visibility->GetCurrentState(), 1u);
  EXPECT_FALSE(visibility->NeedEvaluate());

  // Without block entities only the elements follow.
  ASSERT_TRUE(switchTo(0, CJbDbCustBlockGraphEvaluationContext::kIgnoreBlockEntities));
  EXPECT_TRUE(width->IsVisible());
  EXPECT_FALSE(shown(leafOpen));

  // Unknown states and other kinds of value are refused and change nothing.
  EXPECT_FALSE(switchTo(3));
  EXPECT_FALSE(switchTo(-1));
  EXPECT_FALSE(visibility->SetValue(0, OdResBuf::newRb(OdResBuf::kRtString, OdString("Open"))));
  EXPECT_EQ(visibility->GetUpdatedState(), 0);

  visibility->ForceHideEntities(7);
  EXPECT_FALSE(shown(leafOpen));
  visibility->ForceHideEntities(2);
  EXPECT_TRUE(shown(frame));
  EXPECT_FALSE(shown(leafOpen) || shown(leafClosed) || shown(swing));
  visibility->ForceShowAllEntities();
  EXPECT_TRUE(shown(leafOpen) && shown(leafClosed) && shown(swing));
}

TEST_F(VisibilityTest, StateNamesStayUniqueAndIndicesFollowTheirStates) {
  EXPECT_OD_ERROR_NAMING(visibility->AddState("  ", {}, {}), eInvalidInput, "name");
  EXPECT_OD_ERROR_NAMING(visibility->AddState("open", {}, {}), eDuplicateRecordName, "open");
  EXPECT_OD_ERROR_NAMING(visibility->SetStateName(1, "OPEN"), eDuplicateRecordName, "OPEN");
  EXPECT_OD_ERROR(visibility->GetStateName(3), eInvalidIndex);
  EXPECT_EQ(visibility->GetStateCount(), 3u);
  EXPECT_EQ(visibility->GetStateName(1), OdString("Closed"));
  visibility->SetStateName(0, "OPEN");
  EXPECT_EQ(visibility->GetStateIndex("OPEN"), 0);
  EXPECT_FALSE(visibility->HasState("Open"));

  EXPECT_EQ(visibility->GenerateStateName(), OdString("VisibilityState1"));
  visibility->AddState("VisibilityState1", {}, {});
  EXPECT_EQ(visibility->GenerateStateName(), OdString("VisibilityState2"));

  // Closed becomes the default: its hidden elements are hidden in the definition.
  visibility->SetBlockEditorState(2);
  visibility->SetUpdatedState(1);
  visibility->ChangeStatePosition(1, 0);
  EXPECT_EQ(visibility->GetStateName(0), OdString("Closed"));
  EXPECT_EQ(visibility->GetUpdatedState(), 0);
  EXPECT_EQ(visibility->GetBlockEditorState(), 2u);
  EXPECT_FALSE(width->IsVisible());

  visibility->RemoveState(0);
  EXPECT_EQ(visibility->GetStateName(0), OdString("OPEN"));
  EXPECT_TRUE(width->IsVisible());
  EXPECT_EQ(visibility->GetUpdatedState(), 0);
  EXPECT_EQ(visibility->GetBlockEditorState(), 1u);
  EXPECT_OD_ERROR(visibility->RemoveState(3), eInvalidIndex);

  // The default state's element list keeps the elements' flags in line.
  visibility->SetHiddenElementIds(0, {width->GetElementId()});
  EXPECT_FALSE(width->IsVisible());
  visibility->SetHiddenElementIds(0, {});
  EXPECT_TRUE(width->IsVisible());
}

TEST_F(VisibilityTest, MovedStatesTakeTheIndicesHeldOnThemAlong) {
  // Editor, current and updated state on the last of three states; the first moves below it.
  ASSERT_TRUE(switchTo(2));
  visibility->SetBlockEditorState(2);
  visibility->ChangeStatePosition(0, 2);
  EXPECT_EQ(visibility->GetStateName(1), OdString("Frame only"));
  EXPECT_EQ(visibility->GetStateName(2), OdString("Open"));
  EXPECT_EQ(visibility->GetBlockEditorState(), 1u);
  EXPECT_EQ(visibility->GetUpdatedState(), 1);
  EXPECT_EQ(visibility->GetCurrentState(), 1u);

  // And back up: the held state goes down one again; a moved held state goes where it moves.
  visibility->ChangeStatePosition(2, 0);
  EXPECT_EQ(visibility->GetBlockEditorState(), 2u);
  EXPECT_EQ(visibility->GetUpdatedState(), 2);
  visibility->ChangeStatePosition(2, 1);
  EXPECT_EQ(visibility->GetStateName(1), OdString("Frame only"));
  EXPECT_EQ(visibility->GetBlockEditorState(), 1u);
  EXPECT_EQ(visibility->GetCurrentState(), 1u);
}

TEST_F(VisibilityTest, AnInstanceKeepsItsStateByName) {
  const OdDbObjectId copyBlock = addBlock("*U1");
  ASSERT_TRUE(switchTo(1));
  CJbDbCustBlockGraphInstanceContextPtr withIds(
      new CJbDbCustBlockGraphInstanceContext(0, db.get()));
  const OdResBufPtr saved = visibility->SaveInstance(withIds.get());

  // Reordered states: the instance comes back in the state named Closed.
  visibility->ChangeStatePosition(1, 2);
  visibility->SetUpdatedState(0);
  OdResBufPtr cursor = saved;
  ASSERT_TRUE(visibility->LoadInstance(cursor, withIds.get()));
  EXPECT_TRUE(cursor.isNull());
  EXPECT_EQ(visibility->GetUpdatedState(), 2);
  // Renamed away: the saved index counts.
  visibility->SetStateName(2, "Shut");
  cursor = saved;
  ASSERT_TRUE(visibility->LoadInstance(cursor, withIds.get()));
  EXPECT_EQ(visibility->GetUpdatedState(), 1);

  // A state's entities in the instance's block come from the chain; a chain cut short changes
  // nothing.
  OdResBufPtr chain = visibility->SaveInstance(withIds.get());
  const OdDbObjectId copyLine = open<OdDbBlockTableRecord>(copyBlock, OdDb::kForWrite)
                                    ->appendOdDbEntity(OdDbLine::createObject().get());
  chain->next()->next()->next()->setObjectId(copyLine);
  cursor = chain;
  ASSERT_TRUE(visibility->LoadInstance(cursor, withIds.get()));
  EXPECT_EQ(visibility->GetCurrentHiddenEntities(0), (OdArray<OdDbObjectId>{copyLine, swing}));
  EXPECT_EQ(visibility->GetDefinedHiddenEntities(0), (OdArray<OdDbObjectId>{leafClosed, swing}));
  chain->next()->next()->next()->next()->setNext(OdResBufPtr());
  visibility->SetUpdatedState(0);
  cursor = chain;
  EXPECT_FALSE(visibility->LoadInstance(cursor, withIds.get()));
  EXPECT_EQ(visibility->GetUpdatedState(), 0);
  EXPECT_EQ(visibility->GetCurrentHiddenEntities(0).first(), copyLine);

  // Without ids: the state and its name only.
  CJbDbCustBlockGraphInstanceContextPtr noIds(new CJbDbCustBlockGraphInstanceContext(
      CJbDbCustBlockGraphInstanceContext::kNoObjectIds, db.get()));
  const OdResBufPtr plain = visibility->SaveInstance(noIds.get());
  ASSERT_EQ(plain->next()->next()->next(), OdResBufPtr());
  EXPECT_EQ(plain->next()->getInt32(), 0);
  EXPECT_EQ(plain->next()->next()->getString(), OdString("Open"));
}

TEST_F(VisibilityTest, StatesSurviveDwgAndDxfFiling) {
  visibility->SetBlockEditorState(2);
  OdSmartPtr<CJbCustBlockVisibilityGrip> grip(new CJbCustBlockVisibilityGrip);
  CJbCustBlockGraphAuthor(graph.get()).BindGrip(visibility.get(), 0, grip.get());
  visibility->SetUpdatedState(1);
  EXPECT_EQ(grip->GetState(), 1u);
  EXPECT_TRUE(visibility->IsGripVisible(0, true));
  const int id = visibility->GetElementId();
  const int widthId = width->GetElementId();
  const int gripId = grip->GetElementId();
  auto expectStates = [this, id, widthId, gripId](CJbDbCustBlockGraph* read,
                                                  OdDbDatabase* database) {
    CJbCustBlockVisibilityParameterPtr loaded =
        CJbCustBlockVisibilityParameter::cast(read->GetNode(id).get());
    ASSERT_FALSE(loaded.isNull());
    EXPECT_EQ(loaded->GetBlockEditorState(), 2u);
    ASSERT_EQ(loaded->GetStateCount(), 3u);
    EXPECT_EQ(loaded->GetStateName(2), OdString("Frame only"));
    EXPECT_EQ(loaded->GetHiddenElementIds(1), OdArray<int>{widthId});
    const OdArray<OdDbObjectId> hidden = loaded->GetDefinedHiddenEntities(1);
    ASSERT_EQ(hidden.length(), 2u);
    EXPECT_EQ(hidden[1].getHandle(), swing.getHandle());
    EXPECT_EQ(hidden[1].database(), database);
    EXPECT_EQ(loaded->GetCurrentHiddenEntities(1), hidden);
    EXPECT_EQ(loaded->GetGrip(0), gripId);
  };

  OdSmartPtr<OdDbMemoryDwgFiler> filer =
      OdDbMemoryDwgFiler::createObject(db.get(), OdDb::kCopyFiler);
  graph->dwgOutFields(filer.get());
  filer->seek(0, OdDb::kSeekFromStart);
  CJbDbCustBlockGraphPtr fromDwg = CJbDbCustBlockGraph::createObject();
  ASSERT_EQ(fromDwg->dwgInFields(filer.get()), eOk);
  expectStates(fromDwg.get(), db.get());

  {
    OdDbDictionaryPtr dictionary = OdDbDictionary::cast(
        db->getNamedObjectsDictionaryId().safeOpenObject(OdDb::kForWrite).get());
    dictionary->setAt("GRAPH", graph.get());
  }
  graph.release();
  OdDbDatabasePtr read = DxfFile::readFromMemory(DxfFile::writeToMemory(db.get()));
  OdDbDictionaryPtr dictionary =
      OdDbDictionary::cast(read->getNamedObjectsDictionaryId().safeOpenObject().get());
  CJbDbCustBlockGraphPtr fromDxf =
      CJbDbCustBlockGraph::cast(dictionary->getAt("GRAPH", OdDb::kForRead).get());
  ASSERT_FALSE(fromDxf.isNull());
  expectStates(fromDxf.get(), read.get());
}

TEST_F(VisibilityTest, AuditDropsErasedEntitiesAndLostElements) {
  open<OdDbLine>(swing, OdDb::kForWrite)->erase();
  graph->RemoveNode(width->GetElementId());
  visibility->SetBlockEditorState(5);
  OdDbAuditInfo report(false);
  visibility->Audit(&report);
  EXPECT_EQ(report.numErrors(), 5);
  EXPECT_EQ(report.numFixes(), 0);
  EXPECT_EQ(visibility->GetDefinedHiddenEntities(0).length(), 2u);

  OdDbAuditInfo fix(true);
  visibility->Audit(&fix);
  EXPECT_EQ(fix.numFixes(), 5);
  EXPECT_EQ(visibility->GetDefinedHiddenEntities(2), (OdArray<OdDbObjectId>{leafOpen, leafClosed}));
  EXPECT_EQ(visibility->GetCurrentHiddenEntities(1), OdArray<OdDbObjectId>{leafOpen});
  EXPECT_TRUE(visibility->GetHiddenElementIds(1).isEmpty());
  EXPECT_EQ(visibility->GetBlockEditorState(), 0u);
}

TEST_F(VisibilityTest, AfterARedefinitionStatesHideTheInstanceBlocksOwnEntities) {
  const OdDbObjectId definition = block;
  // The instance block: a copy of the definition, entity for entity.
  block = addBlock("Door instance");
  const OdDbObjectId copyLeafOpen = addLine(0);
  const OdDbObjectId copyLeafClosed = addLine(1);
  const OdDbObjectId copySwing = addLine(2);
  addLine(3);
  const OdDbObjectId reference = addReference(db->getModelSpaceId(), block);
  const int redefine = CJbDbCustBlockGraphEvaluationContext::kAfterBlockRedefine;

  ASSERT_TRUE(switchTo(1, redefine, block));
  EXPECT_EQ(visibility->GetCurrentHiddenEntities(1),
            (OdArray<OdDbObjectId>{copyLeafOpen, copySwing}));
  EXPECT_EQ(visibility->GetDefinedHiddenEntities(1), (OdArray<OdDbObjectId>{leafOpen, swing}));
  EXPECT_FALSE(shown(copyLeafOpen));
  EXPECT_FALSE(shown(copySwing));
  EXPECT_TRUE(shown(leafOpen));
  EXPECT_TRUE(shown(swing));

  // Through a reference to the instance, with the reference held open for write.
  {
    OdDbBlockReferencePtr held = open<OdDbBlockReference>(reference, OdDb::kForWrite);
    ASSERT_TRUE(switchTo(2, redefine, reference));
  }
  EXPECT_FALSE(shown(copyLeafClosed));
  EXPECT_FALSE(shown(copyLeafOpen));
  EXPECT_TRUE(shown(leafClosed));

  // In the definition itself the defined entities are the current ones.
  ASSERT_TRUE(switchTo(1, redefine, definition));
  EXPECT_EQ(visibility->GetCurrentHiddenEntities(1), (OdArray<OdDbObjectId>{leafOpen, swing}));
}
