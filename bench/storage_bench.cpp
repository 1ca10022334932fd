// Cost of editing references of a customizable door block of 30 entities (a frame, a swing arc, a
// label and 27 lines; a linear width parameter in steps of 5 driving a stretch of the right side):
// a grip edit of a reference that has its anonymous block already (load the state, evaluate,
// commit), the first edit of a reference of the master (which copies the block first), and one
// edit of each of 10,000 references.
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "actions/CJbCustBlockActionClasses.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "parameters/CJbCustBlockParameterValueInfo.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"
#include "platform/OdPlatform.h"
#include "platform/db/entities/OdDbArc.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "platform/db/entities/OdDbText.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/ge/OdGeConstants.h"
#include "storage/CJbCustBlockEditorHelper.h"
#include "storage/CJbCustBlockStorageClasses.h"
#include "storage/CJbDbCustBlockStorage.h"

namespace {
constexpr int kPaddingLines = 27;

struct Door {
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  OdDbObjectId block;
  int grip = 0;
};

template <class T>
OdSmartPtr<T> openAs(const OdDbObjectId& id, OdDb::OpenMode mode = OdDb::kForRead) {
  return T::cast(id.openObject(mode).get());
}

Door makeDoor() {
  Door door;
  OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::createObject();
  record->setName("Door");
  door.block =
      openAs<OdDbBlockTable>(door.db->getBlockTableId(), OdDb::kForWrite)->add(record.get());
  OdDbObjectIdArray stretched;
  OdSmartPtr<OdDbPolyline> frame = OdDbPolyline::createObject();
  for (const OdGePoint2d& vertex :
       {OdGePoint2d(0, 0), OdGePoint2d(10, 0), OdGePoint2d(10, 1), OdGePoint2d(0, 1)})
    frame->addVertexAt(frame->numVerts(), vertex);
  frame->setClosed(true);
  stretched.append(record->appendOdDbEntity(frame.get()));
  OdSmartPtr<OdDbArc> swing = OdDbArc::createObject();
  swing->setRadius(10);
  swing->setEndAngle(OdGeConstants::kHalfPi);
  stretched.append(record->appendOdDbEntity(swing.get()));
  OdSmartPtr<OdDbText> label = OdDbText::createObject();
  label->setTextString("DOOR");
  record->appendOdDbEntity(label.get());
  for (int i = 0; i < kPaddingLines; ++i) {
    OdSmartPtr<OdDbLine> line = OdDbLine::createObject();
    line->setStartPoint(OdGePoint3d(0, -3 - 0.1 * i, 0));
    line->setEndPoint(OdGePoint3d(1, -3 - 0.1 * i, 0));
    record->appendOdDbEntity(line.get());
  }
  record.release();

  OdDbObjectId graphId;
  CJbDbCustBlockStorage::GetStorage(door.db.get(), OdDb::kForWrite, true)
      ->AppendMasterBlock(door.block, graphId);
  CJbDbCustBlockGraphPtr graph = openAs<CJbDbCustBlockGraph>(graphId, OdDb::kForWrite);
  CJbCustBlockLinearParameterPtr width = CJbCustBlockLinearParameter::createObject();
  graph->AppendNode(width);
  width->SetDefinedPosition(0, OdGePoint3d::kOrigin);
  width->SetDefinedPosition(1, OdGePoint3d(10, 0, 0));
  for (unsigned point = 0; point < 2; ++point) {
    CJbCustBlockLinearGripPtr grip = CJbCustBlockLinearGrip::createObject();
    graph->AppendNode(grip);
    width->SetGrip(point, grip->GetElementId());
    grip->AddConnection(width->GetElementId(), false, true);
    grip->SetDefindedPosition(width->GetDefinedPosition(point));
    door.grip = grip->GetElementId();
  }
  width->GetValueInfoForModify(0)->SetIncrement(5.0, width.get());
  CJbCustBlockStretchActionPtr stretch = CJbCustBlockStretchAction::createObject();
  graph->AppendNode(stretch);
  stretch->SetParameter(width->GetElementId());
  stretch->SetParameterPointIndex(1);
  stretch->SetEntities(0, stretched);
  stretch->SetSelectionDefinition(0, {OdGePoint3d(8, -1, 0), OdGePoint3d(12, 2, 0)}, true);
  return door;
}

OdDbObjectId addReference(const Door& door) {
  OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
  reference->setBlockTableRecord(door.block);
  return openAs<OdDbBlockTableRecord>(door.db->getModelSpaceId(), OdDb::kForWrite)
      ->appendOdDbEntity(reference.get());
}

// One grip drag of the door's width on reference, committed.
void dragWidth(const Door& door, const OdDbObjectId& reference, double by) {
  CJbCustBlockEditorHelper helper(reference);
  CJbCustBlockGripPtr grip =
      CJbCustBlockGrip::cast(helper.GetGraph(OdDb::kForWrite)->GetNode(door.grip).get());
  grip->SetDisplayPosition(grip->GetDisplayPosition() + OdGeVector3d(by, 0, 0));
  grip.release();
  helper.Commit();
}

void BM_GripEditOfOwnInstance(benchmark::State& state) {
  const Door door = makeDoor();
  const OdDbObjectId reference = addReference(door);
  dragWidth(door, reference, 5);
  double by = 5;
  for (auto _ : state) {
    dragWidth(door, reference, by);
    by = -by;
  }
}
BENCHMARK(BM_GripEditOfOwnInstance)->Unit(benchmark::kMicrosecond);

void BM_FirstEditOfMasterReference(benchmark::State& state) {
  const Door door = makeDoor();
  for (auto _ : state) {
    state.PauseTiming();
    const OdDbObjectId reference = addReference(door);
    state.ResumeTiming();
    dragWidth(door, reference, 5);
  }
}
BENCHMARK(BM_FirstEditOfMasterReference)->Unit(benchmark::kMicrosecond)->Iterations(2000);

void BM_EditTenThousandReferences(benchmark::State& state) {
  std::unique_ptr<Door> door;
  std::vector<OdDbObjectId> references;
  for (auto _ : state) {
    state.PauseTiming();
    references.clear();
    door = std::make_unique<Door>(makeDoor());
    for (int i = 0; i < 10000; ++i)
      references.push_back(addReference(*door));
    state.ResumeTiming();
    for (const OdDbObjectId& reference : references)
      dragWidth(*door, reference, 5);
  }
}
BENCHMARK(BM_EditTenThousandReferences)->Unit(benchmark::kMillisecond)->Iterations(3);
}  // namespace

int main(int argc, char** argv) {
  odInitialize();
  CJbCustBlockCoreClasses::RxInit();
  CJbCustBlockParameterClasses::RxInit();
  CJbCustBlockActionClasses::RxInit();
  CJbCustBlockStorageClasses::RxInit();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  CJbCustBlockStorageClasses::RxUninit();
  CJbCustBlockActionClasses::RxUninit();
  CJbCustBlockParameterClasses::RxUninit();
  CJbCustBlockCoreClasses::RxUninit();
  odUninitialize();
  return 0;
}
