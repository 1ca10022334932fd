// Shared set-up of the storage tests.
#include "StorageTestSupport.h"
#include "authoring/CJbCustBlockGraphAuthor.h"

#include <unistd.h>

#include <cmath>
#include <filesystem>

#include "actions/CJbCustBlockActionClasses.h"
#include "actions/CJbCustBlockPolarStretchAction.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "parameters/CJbCustBlockParameterValueInfo.h"
#include "parameters/CJbCustBlockPolarParameter.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"
#include "parameters/grips/CJbCustBlockPolarGrip.h"
#include "platform/db/entities/OdDbArc.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/entities/OdDbText.h"
#include "storage/CJbCustBlockStorageClasses.h"

void StorageTest::SetUpTestSuite() {
  CJbCustBlockCoreClasses::RxInit();
  CJbCustBlockParameterClasses::RxInit();
  CJbCustBlockActionClasses::RxInit();
  CJbCustBlockStorageClasses::RxInit();
}

void StorageTest::TearDownTestSuite() {
  CJbCustBlockStorageClasses::RxUninit();
  CJbCustBlockActionClasses::RxUninit();
  CJbCustBlockParameterClasses::RxUninit();
  CJbCustBlockCoreClasses::RxUninit();
}

CJbDbCustBlockStoragePtr StorageTest::storage(OdDb::OpenMode mode, OdDbDatabase* database) {
  return CJbDbCustBlockStorage::GetStorage(database ? database : db.get(), mode, true);
}

namespace {
template <class Parameter, class Grip>
OdSmartPtr<Parameter> addParameter(CJbDbCustBlockGraph* graph, int& rightGrip) {
  OdSmartPtr<Parameter> parameter(new Parameter);
  graph->AppendNode(parameter);
  parameter->SetDefinedPosition(0, OdGePoint3d::kOrigin);
  parameter->SetDefinedPosition(1, OdGePoint3d(10, 0, 0));
  for (unsigned point = 0; point < 2; ++point) {
    OdSmartPtr<Grip> grip(new Grip);
    CJbCustBlockGraphAuthor(graph).BindGrip(parameter.get(), point, grip.get());
    rightGrip = grip->GetElementId();
  }
  parameter->GetValueInfoForModify(0)->SetIncrement(5.0, parameter.get());
  return parameter;
}
}  // namespace

OdDbObjectId StorageTest::addDoor(const OdString& name, bool polar, int extraLines) {
  const OdDbObjectId block = addBlock(name);
  OdDbObjectIdArray stretched;
  {
    OdDbBlockTableRecordPtr record = open<OdDbBlockTableRecord>(block, OdDb::kForWrite);
    OdSmartPtr<OdDbPolyline> frame = OdDbPolyline::createObject();
    for (const OdGePoint2d& vertex : DoorFrame(10))
      frame->addVertexAt(frame->numVerts(), vertex);
    frame->setClosed(true);
    stretched.append(record->appendOdDbEntity(frame.get()));
    OdSmartPtr<OdDbArc> swing = OdDbArc::createObject();
    swing->setRadius(10);
    swing->setStartAngle(0);
    swing->setEndAngle(std::acos(-1.0) / 2);
    stretched.append(record->appendOdDbEntity(swing.get()));
    OdSmartPtr<OdDbText> label = OdDbText::createObject();
    label->setPosition(OdGePoint3d(2, -2, 0));
    label->setHeight(1);
    label->setTextString("DOOR");
    record->appendOdDbEntity(label.get());
    for (int i = 0; i < extraLines; ++i) {
      OdSmartPtr<OdDbLine> line = OdDbLine::createObject();
      line->setStartPoint(OdGePoint3d(0, -3 - 0.1 * i, 0));
      line->setEndPoint(OdGePoint3d(1, -3 - 0.1 * i, 0));
      record->appendOdDbEntity(line.get());
    }
  }
  OdDbObjectId graphId;
  EXPECT_TRUE(storage(OdDb::kForWrite)->AppendMasterBlock(block, graphId));
  CJbDbCustBlockGraphPtr graph = open<CJbDbCustBlockGraph>(graphId, OdDb::kForWrite);
  CJbCustBlockActionPtr action;
  if (polar) {
    auto parameter =
        addParameter<CJbCustBlockPolarParameter, CJbCustBlockPolarGrip>(graph.get(), rightGrip);
    widthParameter = parameter->GetElementId();
    action = CJbCustBlockPolarStretchAction::createObject();
  } else {
    auto parameter =
        addParameter<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(graph.get(), rightGrip);
    widthParameter = parameter->GetElementId();
    action = CJbCustBlockStretchAction::createObject();
  }
  graph->AppendNode(action);
  action->SetParameter(widthParameter);
  action->SetParameterPointIndex(1);
  action->SetEntities(0, stretched);
  action->SetSelectionDefinition(0, {OdGePoint3d(8, -1, 0), OdGePoint3d(12, 2, 0)}, true);
  return block;
}

std::vector<OdDbObjectId> StorageTest::addReferences(int count, int edited) {
  std::vector<OdDbObjectId> references;
  for (int i = 0; i < count; ++i) {
    references.push_back(addReference(db->getModelSpaceId(), door, OdGePoint3d(30.0 * i, 0, 0)));
    if (i < edited) dragWidth(references.back(), OdGeVector3d(5.0 * (i + 1), 0, 0));
  }
  return references;
}

void StorageTest::setValue(const OdDbObjectId& reference, int id, const OdResBufPtr& value) {
  commitEdit(reference, [&](CJbDbCustBlockGraph* graph) {
    EXPECT_TRUE(CJbCustBlockParameter::cast(graph->GetNode(id).get())->SetValue(0, value));
  });
}

void StorageTest::dragWidth(const OdDbObjectId& reference, const OdGeVector3d& by) {
  commitEdit(reference, [&](CJbDbCustBlockGraph* graph) {
    CJbCustBlockGripPtr grip = CJbCustBlockGrip::cast(graph->GetNode(rightGrip).get());
    ASSERT_FALSE(grip.isNull());
    grip->SetDisplayPosition(grip->GetDisplayPosition() + by);
  });
}

OdDbObjectId StorageTest::blockOf(const OdDbObjectId& reference) {
  return open<OdDbBlockReference>(reference)->blockTableRecord();
}

std::vector<OdGePoint2d> StorageTest::frameOf(const OdDbObjectId& block) {
  std::vector<OdGePoint2d> vertices;
  OdDbObjectIteratorPtr it = open<OdDbBlockTableRecord>(block)->newIterator();
  OdSmartPtr<OdDbPolyline> frame = OdDbPolyline::cast(it->getObject().get());
  if (frame.isNull()) return vertices;
  for (unsigned i = 0; i < frame->numVerts(); ++i)
    vertices.push_back(frame->getPoint2dAt(i));
  return vertices;
}

double StorageTest::savedWidth(const OdDbObjectId& block) {
  CJbDbCustBlockGraphPtr graph;
  if (!storage()->GetUpdatedGraph(block, graph)) return -1;
  return CJbCustBlockParameter::cast(graph->GetNode(widthParameter).get())
      ->GetValue(0)
      ->getDouble();
}

::testing::AssertionResult SameFrame(const std::vector<OdGePoint2d>& actual,
                                     const std::vector<OdGePoint2d>& expected) {
  bool same = actual.size() == expected.size();
  for (std::size_t i = 0; same && i < actual.size(); ++i)
    same = actual[i].isEqualTo(expected[i]);
  if (same) return ::testing::AssertionSuccess();
  ::testing::AssertionResult failure = ::testing::AssertionFailure();
  failure << "frame";
  for (const OdGePoint2d& point : actual)
    failure << " (" << point.x << ", " << point.y << ")";
  return failure;
}

std::vector<OdGePoint2d> DoorFrame(double width) {
  return {OdGePoint2d(0, 0), OdGePoint2d(width, 0), OdGePoint2d(width, 1), OdGePoint2d(0, 1)};
}

std::string UniqueTempPath(const std::string& extension) {
  const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
  const std::string name = std::string(test->test_suite_name()) + "." + test->name() + "." +
                           std::to_string(::getpid()) + extension;
  return (std::filesystem::temp_directory_path() / name).string();
}
