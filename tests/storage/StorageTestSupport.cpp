// Shared set-up of the storage tests.
#include "StorageTestSupport.h"

#include <unistd.h>

#include <filesystem>

#include "actions/CJbCustBlockActionClasses.h"
#include "authoring/CJbCustBlockAuthor.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "demo/DoorDemoBlock.h"
#include "parameters/CJbCustBlockParameterClasses.h"
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

OdDbObjectId StorageTest::addDoor(const OdString& name, bool polar, int extraLines) {
  DoorDemoBlock::Options options = DoorDemoBlock::PlainOptions(10, 5);
  options.polar = polar;
  options.paddingLines = extraLines;
  CJbCustBlockAuthor author(db.get(), name);
  const DoorDemoBlock::Parts parts = DoorDemoBlock(options).build(author);
  widthParameter = parts.width;
  rightGrip = parts.widthGrip;
  return author.Finish();
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
  return {OdGePoint2d(0, -1), OdGePoint2d(width, -1), OdGePoint2d(width, 0), OdGePoint2d(0, 0)};
}

std::string UniqueTempPath(const std::string& extension) {
  const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
  const std::string name = std::string(test->test_suite_name()) + "." + test->name() + "." +
                           std::to_string(::getpid()) + extension;
  return (std::filesystem::temp_directory_path() / name).string();
}
