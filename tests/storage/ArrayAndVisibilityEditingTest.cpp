// Editing references whose blocks carry an array or visibility states: a table whose width fills
// with chairs, a door shown open or closed. Each edit changes only the edited reference's block,
// and the copies and states survive a DXF file, where editing goes on from them.
#include <algorithm>
#include <filesystem>

#include "StorageTestSupport.h"
#include "actions/CJbCustBlockArrayAction.h"
#include "authoring/CJbCustBlockAuthor.h"
#include "demo/DoorDemoBlock.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"
#include "platform/db/cloning/OdDbIdMapping.h"
#include "platform/db/entities/OdDbCircle.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/dxf/DxfFile.h"

namespace fs = std::filesystem;

class ArrayAndVisibilityEditingTest : public StorageTest {
 protected:
  void SetUp() override {
    StorageTest::SetUp();
    table = addBlock("Table");
    OdDbObjectId tableGraph;
    ASSERT_TRUE(storage(OdDb::kForWrite)->AppendMasterBlock(table, tableGraph));

    // A table 6 wide with one chair; chairs repeat every 4 along its width.
    add<OdDbLine>(table, [](OdDbLine& top) { top.setEndPoint(OdGePoint3d(6, 0, 0)); });
    const OdDbObjectId chair = add<OdDbCircle>(table, [](OdDbCircle& seat) {
      seat.setCenter(OdGePoint3d(1, -1, 0));
      seat.setRadius(0.5);
    });
    CJbDbCustBlockGraphPtr graph = open<CJbDbCustBlockGraph>(tableGraph, OdDb::kForWrite);
    CJbCustBlockLinearParameterPtr width(new CJbCustBlockLinearParameter);
    graph->AppendNode(width);
    width->SetDefinedPosition(1, OdGePoint3d(6, 0, 0));
    widthId = width->GetElementId();
    CJbCustBlockArrayActionPtr array(new CJbCustBlockArrayAction);
    graph->AppendNode(array);
    array->SetParameter(widthId);
    array->SetEntities(0, {chair});
    array->SetColumnDistance(4.0);

    graph.release();

    // A door shown open (the swing arc) or closed (the closed leaf); open by default.
    DoorDemoBlock::Options options = DoorDemoBlock::PlainOptions(10, 5);
    options.look = true;
    CJbCustBlockAuthor author(db.get(), "Door");
    visibilityId = DoorDemoBlock(options).build(author).look;
    door = author.Finish();

    for (int i = 0; i < 2; ++i) {
      tables.push_back(addReference(db->getModelSpaceId(), table, OdGePoint3d(0, 20 * i, 0)));
      doors.push_back(addReference(db->getModelSpaceId(), door, OdGePoint3d(30, 20 * i, 0)));
    }
  }

  template <class Entity, class Shape>
  OdDbObjectId add(const OdDbObjectId& block, Shape shape) {
    OdSmartPtr<Entity> entity = Entity::createObject();
    shape(*entity);
    return open<OdDbBlockTableRecord>(block, OdDb::kForWrite)->appendOdDbEntity(entity.get());
  }

  void setWidth(const OdDbObjectId& reference, double width) {
    setValue(reference, widthId, OdResBuf::newRb(OdResBuf::kRtDouble, width));
  }
  void setState(const OdDbObjectId& reference, int state) {
    setValue(reference, visibilityId, OdResBuf::newRb(OdResBuf::kRtInt32, state));
  }

  // Centres along X of the chairs in a block.
  std::vector<double> chairs(const OdDbObjectId& block) {
    std::vector<double> found;
    for (OdDbObjectIteratorPtr it = open<OdDbBlockTableRecord>(block)->newIterator(); !it->done();
         it->step()) {
      OdSmartPtr<OdDbCircle> chair = OdDbCircle::cast(it->getObject().get());
      if (!chair.isNull()) found.push_back(chair->center().x);
    }
    std::sort(found.begin(), found.end());
    return found;
  }

  // Whether the swing and the closed leaf of a door block are shown, in that order.
  std::vector<bool> shown(const OdDbObjectId& block) {
    std::vector<bool> found;
    for (OdDbObjectIteratorPtr it = open<OdDbBlockTableRecord>(block)->newIterator(); !it->done();
         it->step())
      found.push_back(OdDbEntity::cast(it->getObject().get())->visibility() == OdDb::kVisible);
    return {found.at(1), found.at(2)};
  }

  // Writes the drawing to a DXF file and carries on with the drawing read from it.
  void saveAndReload() {
    const fs::path path = UniqueTempPath(".dxf");
    DxfFile::write(db.get(), path.string());
    OdDbDatabasePtr read = DxfFile::read(path.string());
    fs::remove(path);
    for (std::vector<OdDbObjectId>* ids : {&tables, &doors})
      for (OdDbObjectId& id : *ids)
        id = read->getOdDbObjectId(id.getHandle());
    table = read->getOdDbObjectId(table.getHandle());
    door = read->getOdDbObjectId(door.getHandle());
    db = read;
  }

  OdDbObjectId table;
  int widthId = 0, visibilityId = 0;
  std::vector<OdDbObjectId> tables, doors;
};

TEST_F(ArrayAndVisibilityEditingTest, WideningOneTableAddsChairsToItAlone) {
  setWidth(tables[0], 16);
  const OdDbObjectId own = blockOf(tables[0]);
  ASSERT_NE(own, table);
  EXPECT_EQ(chairs(own), (std::vector<double>{1, 5, 9, 13}));
  EXPECT_EQ(chairs(table), std::vector<double>{1});
  EXPECT_EQ(blockOf(tables[1]), table);

  saveAndReload();
  EXPECT_EQ(chairs(blockOf(tables[0])), (std::vector<double>{1, 5, 9, 13}));
  EXPECT_EQ(chairs(table), std::vector<double>{1});
  // The copies made before the file are known after it: narrowing erases them.
  const OdDbObjectId reloaded = blockOf(tables[0]);
  setWidth(tables[0], 8);
  EXPECT_EQ(blockOf(tables[0]), reloaded);
  EXPECT_EQ(chairs(blockOf(tables[0])), (std::vector<double>{1, 5}));
  setWidth(tables[1], 12);
  EXPECT_EQ(chairs(blockOf(tables[1])), (std::vector<double>{1, 5, 9}));
  EXPECT_EQ(chairs(blockOf(tables[0])), (std::vector<double>{1, 5}));
}

TEST_F(ArrayAndVisibilityEditingTest, ClosingOneDoorHidesItsSwingAlone) {
  EXPECT_EQ(shown(door), (std::vector<bool>{true, false}));
  setState(doors[0], 1);
  const OdDbObjectId own = blockOf(doors[0]);
  ASSERT_NE(own, door);
  EXPECT_EQ(shown(own), (std::vector<bool>{false, true}));
  EXPECT_EQ(shown(door), (std::vector<bool>{true, false}));
  EXPECT_EQ(blockOf(doors[1]), door);

  saveAndReload();
  EXPECT_EQ(shown(blockOf(doors[0])), (std::vector<bool>{false, true}));
  EXPECT_EQ(shown(door), (std::vector<bool>{true, false}));
  CJbDbCustBlockGraphPtr graph;
  ASSERT_TRUE(storage()->GetUpdatedGraph(blockOf(doors[0]), graph));
  EXPECT_EQ(
      CJbCustBlockVisibilityParameter::cast(graph->GetNode(visibilityId).get())->GetUpdatedState(),
      1);
  graph.release();
  // Opened again after the file: the states still name the entities of its own block.
  setState(doors[0], 0);
  EXPECT_EQ(shown(blockOf(doors[0])), (std::vector<bool>{true, false}));
  EXPECT_EQ(shown(door), (std::vector<bool>{true, false}));
}

TEST_F(ArrayAndVisibilityEditingTest, ARedefinedDoorKeepsItsStateInItsOwnBlock) {
  setState(doors[0], 1);
  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  ASSERT_TRUE(CJbDbCustBlockStorage::CopyMasterBlock(door, door, *mapping, false));
  ASSERT_NE(blockOf(doors[0]), door);
  EXPECT_EQ(shown(blockOf(doors[0])), (std::vector<bool>{false, true}));
  EXPECT_EQ(shown(door), (std::vector<bool>{true, false}));
}
