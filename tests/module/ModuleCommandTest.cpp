// The block-editor commands as a host runs them: looked up by name on the host's command stack,
// answered by a scripted user, working on the drawing with one element of every kind.
#include <deque>

#include "ModuleTestSupport.h"
#include "platform/db/DbTestSupport.h"
#include "platform/db/OdDbGripPointsPE.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/dxf/DxfFile.h"
#include "platform/host/CJbCustBlockElementUtilsPE.h"
#include "platform/host/CJbDraggingPreview.h"
#include "platform/host/CJbGripPointsPE.h"
#include "platform/host/CJbPropertyBase.h"
#include "platform/host/OdEdCommandStack.h"
#include "platform/host/OdEdUserIO.h"

namespace {
class ScriptedUser : public OdEdUserIO, public OdEdCommandContext {
 public:
  OdString getString(const OdString&) override {
    if (answers.empty()) throw OdError(eEndOfFile, "the script has no more answers");
    const OdString answer = answers.front();
    answers.pop_front();
    return answer;
  }
  void putString(const OdString& text) override { output.push_back(text.str()); }
  OdDbDatabase* database() const override { return db; }
  OdEdUserIO* userIO() const override {
    return withUser ? const_cast<ScriptedUser*>(this) : nullptr;
  }

  std::deque<OdString> answers;
  std::vector<std::string> output;
  OdDbDatabase* db = nullptr;
  bool withUser = true;
};

class EditorCommands : public ::testing::Test {
 protected:
  void SetUp() override {
    const std::string& text = drawingWithEveryElementKind();  // before the module owns the classes
    loadModule();
    db = DxfFile::readFromMemory(text);
    user.db = db.get();
  }
  void TearDown() override {
    db.release();
    unloadModule();
  }

  // Runs a command with the given answers; returns what it told the user.
  std::vector<std::string> run(const char* name, std::initializer_list<const char*> answers) {
    const OdEdCommandPtr command = odedRegCmds()->lookupCmd(name);
    if (command.isNull()) throw OdError(eKeyNotFound, std::string("no command ") + name);
    user.answers.assign(answers.begin(), answers.end());
    user.output.clear();
    command->execute(&user);
    EXPECT_TRUE(user.answers.empty()) << name << " left answers unread";
    return user.output;
  }

  // Names of the block's elements in graph order.
  std::vector<std::string> elementNames() {
    const OdDbObjectPtr graph = graphOf(db.get());
    std::vector<std::string> names;
    const auto utilities = CJbCustBlockElementUtilsPE::cast(
        graph->isA()->getX(CJbCustBlockElementUtilsPE::desc()).get());
    for (const OdRxObjectPtr& element : utilities->GetParts(graph.get())) {
      const auto properties =
          CJbPropertyBase::cast(element->isA()->getX(CJbPropertyBase::desc()).get());
      names.push_back(properties->GetPropertyValue(element.get(), "Name")->getString().str());
    }
    return names;
  }

  // A line in the block DOOR, hidden when asked.
  OdDbObjectId addLine(bool hidden = false) {
    OdDbLinePtr line = OdDbLine::createObject();
    if (hidden) line->setVisibility(OdDb::kInvisible);
    return OdDbBlockTableRecord::cast(doorId().safeOpenObject(OdDb::kForWrite).get())
        ->appendOdDbEntity(line.get());
  }
  OdDbObjectId doorId() {
    return OdDbBlockTable::cast(db->getBlockTableId().safeOpenObject().get())->getAt("DOOR");
  }
  OdDbObjectId insertDoor(const OdGePoint3d& at) {
    OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    reference->setBlockTableRecord(doorId());
    reference->setPosition(at);
    return OdDbBlockTableRecord::cast(db->getModelSpaceId().safeOpenObject(OdDb::kForWrite).get())
        ->appendOdDbEntity(reference.get());
  }
  bool isVisible(const OdDbObjectId& id) {
    return OdDbEntity::cast(id.safeOpenObject().get())->visibility() == OdDb::kVisible;
  }

  OdDbDatabasePtr db;
  ScriptedUser user;
};
}  // namespace

TEST_F(EditorCommands, AddRenameListAndRemoveElementsAndActivities) {
  const std::size_t before = elementNames().size();
  EXPECT_EQ(run("_CBELEMENT", {"DOOR", "linear"}), std::vector<std::string>({"Added Linear2."}));
  // The linear parameter came with a grip on each of its two points.
  std::vector<std::string> names = elementNames();
  ASSERT_EQ(names.size(), before + 3);
  EXPECT_EQ(names[before], "Linear2");

  run("CBACTIVITYTOOL", {"DOOR", "Move", "Linear2"});
  names = elementNames();
  const std::string move = names.back();
  EXPECT_EQ(run("CBACTIVITY", {"DOOR", "Linear2"}),
            std::vector<std::string>({move + " <- Linear2"}));

  run("CBRENAMEACTIVITY", {"DOOR", move.c_str(), "Slide"});
  EXPECT_OD_ERROR(run("CBRENAMEACTIVITY", {"DOOR", "Slide", "Linear2"}), eDuplicateKey);
  EXPECT_EQ(elementNames().back(), "Slide");
  run("CBREMOVEACTIVITY", {"DOOR", "Slide"});
  EXPECT_EQ(run("CBACTIVITY", {"DOOR", "Linear2"}),
            std::vector<std::string>({"Linear2 drives no activity."}));

  // A pair in one step, and a pair whose action does not take that parameter.
  run("CBELEMENTSET", {"DOOR", "POLAR", "POLARSTRETCH"});
  EXPECT_EQ(elementNames().size(), before + 3 + 4);
  EXPECT_OD_ERROR(run("CBELEMENTSET", {"DOOR", "ROTATION", "STRETCH"}), eInvalidInput);

  EXPECT_OD_ERROR(run("CBELEMENT", {"WINDOW", "LINEAR"}), eKeyNotFound);
  EXPECT_OD_ERROR(run("CBELEMENT", {"DOOR", "SPIRAL"}), eKeyNotFound);
  EXPECT_OD_ERROR(run("CBELEMENT", {"DOOR"}), eEndOfFile);
  user.withUser = false;
  EXPECT_OD_ERROR(run("CBELEMENT", {}), eNotApplicable);
}

TEST_F(EditorCommands, SelectionsCyclingOrderAndHiddenEntities) {
  const OdDbObjectId lineId = addLine();
  const OdDbObjectId hiddenId = addLine(true);
  const OdDbObjectId referenceId = insertDoor(OdGePoint3d());
  const std::string line = lineId.getHandle().ascii().str();
  const std::string hidden = hiddenId.getHandle().ascii().str();
  EXPECT_EQ(run("CBNEWACTIVITYSELECTION", {"DOOR", "Move1", line.c_str()}),
            std::vector<std::string>({"Move1 acts on 1 entities."}));
  EXPECT_EQ(
      run("CBMODIFYACTIVITYSELECTION", {"DOOR", "Move1", "Add", (line + " " + hidden).c_str()}),
      std::vector<std::string>({"Move1 acts on 2 entities."}));
  EXPECT_EQ(run("CBMODIFYACTIVITYSELECTION", {"DOOR", "Move1", "r", line.c_str()}),
            std::vector<std::string>({"Move1 acts on 1 entities."}));
  EXPECT_OD_ERROR(run("CBNEWACTIVITYSELECTION", {"DOOR", "Move1", "FFFFF"}), eKeyNotFound);

  const std::vector<std::string> order = run("CBCYCLEORDER", {"DOOR", "1,2"});
  ASSERT_GE(order.size(), 2u);
  const std::vector<std::string> moved = run("CBCYCLEORDER", {"DOOR", ""});
  EXPECT_EQ(moved[0].substr(3), order[1].substr(3));
  EXPECT_EQ(moved[1].substr(3), order[0].substr(3));
  EXPECT_OD_ERROR(run("CBCYCLEORDER", {"DOOR", "0,99"}), eInvalidInput);

  // While the reference is dragged, hidden entities show only in BVMODE 1.
  auto preview = [&] {
    return CJbDraggingPreview::Get()->GetPreviewEntities(
        OdDbEntity::cast(referenceId.safeOpenObject().get()).get());
  };
  EXPECT_EQ(preview(), OdArray<OdDbObjectId>({lineId}));
  EXPECT_EQ(run("BVMODE", {"1"}), std::vector<std::string>({"BVMODE is 0."}));
  EXPECT_EQ(preview(), OdArray<OdDbObjectId>({lineId, hiddenId}));
  EXPECT_OD_ERROR(run("BVMODE", {"2"}), eInvalidInput);
  run("BVMODE", {"0"});
}

TEST_F(EditorCommands, VisibilityStatesHideAndShowEntitiesOfTheBlock) {
  const OdDbObjectId door = addLine();
  const std::string handle = door.getHandle().ascii().str();
  // A new visibility element has no states yet.
  EXPECT_EQ(run("-CBVISIBILITY", {"DOOR", "New", "Open"}),
            std::vector<std::string>({"Added Open."}));
  EXPECT_EQ(run("-CBVISIBILITY", {"DOOR", "n", "Closed"}),
            std::vector<std::string>({"* Open", "Added Closed."}));
  const std::string open = "Open";
  run("-CBVISIBILITY", {"DOOR", "Set", "closed"});
  EXPECT_EQ(run("CBHIDE", {"DOOR", handle.c_str()}),
            std::vector<std::string>({"Closed hides 1 entities."}));
  EXPECT_FALSE(isVisible(door));
  // Back in the first state the entity shows again; the closed state still hides it.
  run("-CBVISIBILITY", {"DOOR", "S", open.c_str()});
  EXPECT_TRUE(isVisible(door));
  EXPECT_EQ(run("CBVISIBILITY", {"DOOR", "2,1"}),
            std::vector<std::string>({"1: " + open + " hides 0 entities and 0 elements",
                                      "2: Closed hides 1 entities and 0 elements"}));
  EXPECT_EQ(run("-CBVISIBILITY", {"DOOR", "Set", "Closed"})[0], "  Closed");
  EXPECT_FALSE(isVisible(door));
  EXPECT_EQ(run("CBSHOW", {"DOOR", handle.c_str()}),
            std::vector<std::string>({"Closed hides 0 entities."}));
  EXPECT_TRUE(isVisible(door));

  run("-CBVISIBILITY", {"DOOR", "Rename", "Closed", "Shut"});
  EXPECT_OD_ERROR(run("-CBVISIBILITY", {"DOOR", "Rename", "Shut", open.c_str()}),
                  eDuplicateRecordName);
  run("-CBVISIBILITY", {"DOOR", "Delete", "Shut"});
  EXPECT_OD_ERROR(run("-CBVISIBILITY", {"DOOR", "Delete", open.c_str()}), eNotApplicable);
  EXPECT_OD_ERROR(run("-CBVISIBILITY", {"DOOR", "Set", "Shut"}), eKeyNotFound);
  EXPECT_OD_ERROR(run("-CBVISIBILITY", {"DOOR", "Toggle"}), eInvalidInput);
}

TEST_F(EditorCommands, TheValueTableTakesColumnsRowsAndTypedCells) {
  const std::vector<std::string> table =
      run("CBVALUETABLE", {"DOOR", "Lookup1", "+Linear1", "+Rotation1[0]", "Narrow", "Wide",
                           "1,1=2.5", "2,2=90", "2,1=4", ""});
  ASSERT_GE(table.size(), 3u);
  EXPECT_EQ(std::vector<std::string>(table.end() - 3, table.end()),
            std::vector<std::string>(
                {"Row | Linear1[0] | Rotation1[0]", "Narrow | 2.5 | ", "Wide | 4 | 90°"}));
  EXPECT_OD_ERROR(run("CBVALUETABLE", {"DOOR", "Lookup1", "1,1=wide"}), eInvalidInput);
  EXPECT_OD_ERROR(run("CBVALUETABLE", {"DOOR", "Lookup1", "3,1=1"}), eInvalidInput);
  EXPECT_OD_ERROR(run("CBVALUETABLE", {"DOOR", "Lookup1", "+Linear1"}), eInvalidInput);
  EXPECT_OD_ERROR(run("CBVALUETABLE", {"DOOR", "Lookup1", "+Door[0]"}), eKeyNotFound);
}

TEST_F(EditorCommands, GripsOfAReferenceEditThatReferenceAlone) {
  EXPECT_EQ(run("CBELEMENTSET", {"DOOR", "POINT", "MOVE"}),
            std::vector<std::string>({"Added Point2 with Move2."}));
  const OdDbObjectId first = insertDoor(OdGePoint3d(10, 0, 0));
  const OdDbObjectId second = insertDoor(OdGePoint3d(20, 0, 0));
  const auto gripsOf = [](const OdDbObjectId& reference) {
    const OdDbEntityPtr entity = OdDbEntity::cast(reference.safeOpenObject().get());
    return CJbGripPointsPE::cast(entity->isA()->getX(CJbGripPointsPE::desc()).get())
        ->GetGrips(entity.get());
  };
  const OdArray<CJbGripPointsPE::Grip> before = gripsOf(first);
  ASSERT_EQ(before.length(), 1u);  // only the new point's grip has an action following it
  EXPECT_EQ(before[0].kind, CJbGripPointsPE::kPoint);
  EXPECT_EQ(before[0].position, OdGePoint3d(10, 0, 0));
  {
    const OdDbEntityPtr entity = OdDbEntity::cast(first.safeOpenObject().get());
    OdGePoint3dArray points;
    ASSERT_EQ(entity->getGripPoints(points), eOk);
    EXPECT_EQ(points, OdGePoint3dArray({OdGePoint3d(10, 0, 0), OdGePoint3d(10, 0, 0)}));
  }

  const auto instanceGrips =
      CJbGripPointsPE::cast(OdDbBlockReference::desc()->getX(CJbGripPointsPE::desc()).get());
  ASSERT_TRUE(instanceGrips->MoveGrip(first, 0, OdGeVector3d(3, 0, 0)));
  EXPECT_EQ(gripsOf(first)[0].position, OdGePoint3d(13, 0, 0));
  EXPECT_EQ(gripsOf(second)[0].position, OdGePoint3d(20, 0, 0));
  auto blockOf = [](const OdDbObjectId& reference) {
    return OdDbBlockReference::cast(reference.safeOpenObject().get())->blockTableRecord();
  };
  EXPECT_NE(blockOf(first), doorId());
  EXPECT_EQ(blockOf(second), doorId());
  EXPECT_FALSE(instanceGrips->MoveGrip(first, 1, OdGeVector3d(3, 0, 0)));
  EXPECT_FALSE(instanceGrips->ClickGrip(first, 0, 1));  // a point grip is dragged, not clicked
  int current = 0;
  EXPECT_TRUE(
      instanceGrips->GetGripStates(OdDbEntity::cast(first.safeOpenObject().get()).get(), 0, current)
          .isEmpty());
  EXPECT_EQ(current, -1);
}
