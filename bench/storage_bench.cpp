// Cost of editing references of a customizable door block of 30 entities (the demonstration's door
// in its plain form: a frame, a swing arc, a label and 27 lines; a linear width parameter in steps
// of 5 driving a stretch of the free side):
// a grip edit of a reference that has its anonymous block already (load the state, evaluate,
// commit), the first edit of a reference of the master (which copies the block first), and one
// edit of each of 10,000 references.
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "actions/CJbCustBlockActionClasses.h"
#include "authoring/CJbCustBlockAuthor.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "demo/DoorDemoBlock.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "platform/OdPlatform.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "storage/CJbCustBlockEditorHelper.h"
#include "storage/CJbCustBlockStorageClasses.h"

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

// The demonstration's door 10 wide in steps of 5 with only its width, padded to 30 entities.
Door makeDoor() {
  Door door;
  DoorDemoBlock::Options options = DoorDemoBlock::PlainOptions(10, 5);
  options.paddingLines = kPaddingLines;
  CJbCustBlockAuthor author(door.db.get(), "Door");
  door.grip = DoorDemoBlock(options).build(author).widthGrip;
  door.block = author.Finish();
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
