// A door whose swing side flips and whose leaf turns, and a panel scaled by its width, edited on
// one reference and carried through a DXF file: the edited reference keeps a mirrored, turned and
// readable copy with its grip on the mirrored side; the others keep the master's shape.
#include <cmath>

#include "StorageTestSupport.h"
#include "actions/CJbCustBlockFlipAction.h"
#include "actions/CJbCustBlockRotateAction.h"
#include "actions/CJbCustBlockScaleAction.h"
#include "authoring/CJbCustBlockGraphAuthor.h"
#include "parameters/CJbCustBlockFlipParameter.h"
#include "parameters/CJbCustBlockRotationParameter.h"
#include "parameters/grips/CJbCustBlockFlipGrip.h"
#include "platform/db/entities/OdDbArc.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/entities/OdDbText.h"
#include "platform/dxf/DxfFile.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGePlane.h"

namespace {
constexpr double kDegree = OdGeAngle::kPi / 180;

}  // namespace

class FlippedDoorTest : public StorageTest {
 protected:
  // The door of the shared set-up, whose swing flips across the wall line (0,0)-(10,0) and whose
  // leaf turns about the hinge; neither action is bound to the other's parameter.
  void addSwingDoor() {
    door = addDoor("SwingDoor");
    OdDbObjectIdArray entities;
    for (OdDbObjectIteratorPtr it = open<OdDbBlockTableRecord>(door)->newIterator(); !it->done();
         it->step())
      entities.append(it->objectId());
    OdDbObjectId graphId;
    ASSERT_TRUE(storage()->GetMasterBlockGraphId(door, graphId));
    CJbDbCustBlockGraphPtr graph = open<CJbDbCustBlockGraph>(graphId, OdDb::kForWrite);
    CJbCustBlockGraphAuthor author(graph.get());
    auto flip = author.AppendParameter<CJbCustBlockFlipParameter, CJbCustBlockFlipGrip>(
        "", {OdGePoint3d::kOrigin, OdGePoint3d(10, 0, 0)}, {0});
    flipGrip = flip->GetGrip(0);
    CJbCustBlockGrip::cast(graph->GetNode(flipGrip).get())
        ->SetDefinitionOffset(OdGeVector3d(0, 2, 0));
    auto rotation = author.AppendParameter<CJbCustBlockRotationParameter>(
        "", {OdGePoint3d::kOrigin, OdGePoint3d(5, 0, 0), OdGePoint3d(5, 0, 0)});
    rotationParameter = rotation->GetElementId();
    author.AppendAction<CJbCustBlockFlipAction>(flip.get(), 0, entities)
        ->SetElements(0, {rotationParameter});
    author.AppendAction<CJbCustBlockRotateAction>(rotation.get(), 0, entities)
        ->SetElements(0, {flip->GetElementId()});
  }

  // The drawing written to DXF and read back; the ids become those of the same handles.
  void reload(std::vector<OdDbObjectId*> ids) {
    const OdDbDatabasePtr read = DxfFile::readFromMemory(DxfFile::writeToMemory(db.get()));
    ids.push_back(&door);
    for (OdDbObjectId* id : ids)
      *id = read->getOdDbObjectId(id->getHandle());
    db = read;
  }

  template <class T>
  OdSmartPtr<T> entityOf(const OdDbObjectId& block) {
    for (OdDbObjectIteratorPtr it = open<OdDbBlockTableRecord>(block)->newIterator(); !it->done();
         it->step()) {
      OdSmartPtr<T> entity = T::cast(it->getObject().get());
      if (!entity.isNull()) return entity;
    }
    return OdSmartPtr<T>();
  }

  int flipGrip = 0;
  int rotationParameter = 0;
};

TEST_F(FlippedDoorTest, FlippedThenTurnedReferenceSurvivesDxfAndLeavesTheOthers) {
  addSwingDoor();
  std::vector<OdDbObjectId> references{addReference(db->getModelSpaceId(), door),
                                       addReference(db->getModelSpaceId(), door)};
  commitEdit(references[0], [&](CJbDbCustBlockGraph* graph) {
    CJbCustBlockFlipGrip::cast(graph->GetNode(flipGrip).get())->SetFlipped(true);
  });
  commitEdit(references[0], [&](CJbDbCustBlockGraph* graph) {
    ASSERT_TRUE(CJbCustBlockParameter::cast(graph->GetNode(rotationParameter).get())
                    ->SetValue(0, OdResBuf::newRb(OdResBuf::kRtAngle, 30 * kDegree)));
  });
  reload({&references[0], &references[1]});

  // The flip turned the rotation's normal over: 30 degrees in the mirrored door is clockwise.
  const OdGeMatrix3d moved =
      OdGeMatrix3d::rotation(-30 * kDegree, OdGeVector3d::kZAxis) *
      OdGeMatrix3d::mirroring(OdGePlane(OdGePoint3d::kOrigin, OdGeVector3d::kYAxis));
  const OdDbObjectId edited = blockOf(references[0]);
  const std::vector<OdGePoint2d> frame = frameOf(edited);
  ASSERT_EQ(frame.size(), 4u);
  for (std::size_t i = 0; i < frame.size(); ++i)
    EXPECT_TRUE(frame[i].isEqualTo((moved * DoorFrame(10)[i].convert3d()).convert2d())) << i;
  auto swing = entityOf<OdDbArc>(edited);
  EXPECT_TRUE(swing->startPoint().isEqualTo(moved * OdGePoint3d(0, 10, 0)));
  EXPECT_TRUE(swing->endPoint().isEqualTo(moved * OdGePoint3d(10, 0, 0)));
  auto label = entityOf<OdDbText>(edited);
  // Turned over the flip line, the label hangs from the image of its start.
  EXPECT_TRUE(label->alignmentPoint().isEqualTo(moved * OdGePoint3d(1.2, -4, 0)));
  EXPECT_EQ(label->verticalMode(), OdDb::kTextTop);
  EXPECT_NEAR(label->rotation(), 330 * kDegree, 1e-9);
  EXPECT_FALSE(label->isMirroredInX() || label->isMirroredInY());

  CJbDbCustBlockGraphPtr graph;
  ASSERT_TRUE(storage()->GetUpdatedGraph(edited, graph));
  auto grip = CJbCustBlockFlipGrip::cast(graph->GetNode(flipGrip).get());
  EXPECT_TRUE(grip->GetCurrentOffset().isEqualTo(moved * OdGeVector3d(0, 2, 0)));
  EXPECT_NEAR(CJbCustBlockParameter::cast(graph->GetNode(rotationParameter).get())
                  ->GetValue(0)
                  ->getDouble(),
              30 * kDegree, 1e-9);

  EXPECT_EQ(blockOf(references[1]), door);
  EXPECT_TRUE(SameFrame(frameOf(door), DoorFrame(10)));
  EXPECT_NEAR(entityOf<OdDbArc>(door)->endAngle(), OdGeAngle::kHalfPi, 1e-12);
}

TEST_F(FlippedDoorTest, ScaleFollowsTheWidthAboutDependentAndIndependentBases) {
  door = addDoor("Panel");
  OdDbObjectId knob, sign;
  {
    OdDbBlockTableRecordPtr record = open<OdDbBlockTableRecord>(door, OdDb::kForWrite);
    for (OdDbObjectId* id : {&knob, &sign}) {
      OdSmartPtr<OdDbLine> line = OdDbLine::createObject();
      line->setStartPoint(id == &knob ? OdGePoint3d(4, 1, 0) : OdGePoint3d(0, 6, 0));
      line->setEndPoint(id == &knob ? OdGePoint3d(4, 3, 0) : OdGePoint3d(2, 6, 0));
      *id = record->appendOdDbEntity(line.get());
    }
  }
  OdDbObjectId graphId;
  ASSERT_TRUE(storage()->GetMasterBlockGraphId(door, graphId));
  {
    CJbDbCustBlockGraphPtr graph = open<CJbDbCustBlockGraph>(graphId, OdDb::kForWrite);
    const auto width = CJbCustBlockParameter::cast(graph->GetNode(widthParameter).get());
    CJbCustBlockGraphAuthor author(graph.get());
    author.AppendAction<CJbCustBlockScaleAction>(width.get(), 1, {knob})
        ->SetBaseOffset(OdGeVector3d(2, 0, 0), false);
    author.AppendAction<CJbCustBlockScaleAction>(width.get(), 1, {sign})
        ->SetBaseOffset(OdGeVector3d(0, 5, 0), true);
  }
  std::vector<OdDbObjectId> references{addReference(db->getModelSpaceId(), door),
                                       addReference(db->getModelSpaceId(), door)};
  auto lineIn = [&](const OdDbObjectId& block, const OdDbObjectId& original) {
    OdDbObjectIteratorPtr it = open<OdDbBlockTableRecord>(block)->newIterator();
    OdDbObjectIteratorPtr from = open<OdDbBlockTableRecord>(door)->newIterator();
    for (; from->objectId() != original; from->step())
      it->step();
    return OdDbLine::cast(it->getObject().get());
  };

  // 10 to 15: the knob grows about the width's start (0, -1) plus (2, 0), the sign about (0, 5).
  dragWidth(references[0], OdGeVector3d(5, 0, 0));
  EXPECT_TRUE(lineIn(blockOf(references[0]), knob)->endPoint().isEqualTo(OdGePoint3d(5, 5, 0)));
  EXPECT_TRUE(lineIn(blockOf(references[0]), sign)->endPoint().isEqualTo(OdGePoint3d(3, 6.5, 0)));

  // 15 to 20 after a trip through DXF: both bases come back with the state.
  reload({&references[0], &references[1], &knob, &sign});
  dragWidth(references[0], OdGeVector3d(5, 0, 0));
  EXPECT_TRUE(lineIn(blockOf(references[0]), knob)->endPoint().isEqualTo(OdGePoint3d(6, 7, 0)));
  EXPECT_TRUE(lineIn(blockOf(references[0]), sign)->endPoint().isEqualTo(OdGePoint3d(4, 7, 0)));
  EXPECT_TRUE(lineIn(blockOf(references[1]), knob)->endPoint().isEqualTo(OdGePoint3d(4, 3, 0)));
}
