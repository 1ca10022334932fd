// Speed and size of the drawing database: opening and closing an object, deep cloning a block,
// and the memory one simple entity costs in a large database.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include "platform/OdPlatform.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/cloning/OdDbIdMapping.h"
#include "platform/db/cloning/OdRxEvent.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/rx/OdRxClass.h"

// The smallest useful entity: one point of geometry on top of the entity base.
class BenchPoint : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(BenchPoint);

 public:
  OdGePoint3d point;
};
ODRX_CONS_DEFINE_MEMBERS(BenchPoint, OdDbEntity)

namespace {
// Renames the copy of a block to "*U" when translation begins, as a block-copying module does.
class AnonymousCopy : public OdStaticRxObject<OdRxEventReactor> {
 public:
  OdDbObjectId source;
  void beginDeepCloneXlation(OdDbIdMapping& mapping) override {
    OdDbIdPair pair(source);
    if (mapping.compute(pair))
      OdDbBlockTableRecordPtr(pair.value().safeOpenObject(OdDb::kForWrite))->setName("*U");
  }
};

OdDbObjectId addBlock(OdDbDatabase* db, const char* name) {
  OdSmartPtr<OdDbBlockTable> table(db->getBlockTableId().safeOpenObject(OdDb::kForWrite));
  OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
  block->setName(name);
  return table->add(block.get());
}

void BM_OpenCloseForRead(benchmark::State& state) {
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  const OdDbObjectId id = db->getNamedObjectsDictionaryId();
  for (auto _ : state) {
    OdDbObjectPtr object;
    id.openObject(object, OdDb::kForRead);
    benchmark::DoNotOptimize(object.get());
  }
}
BENCHMARK(BM_OpenCloseForRead);

void BM_DeepCloneBlockOf30Entities(benchmark::State& state) {
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  const OdDbObjectId inner = addBlock(db.get(), "Inner");
  const OdDbObjectId part = addBlock(db.get(), "Part");
  {
    OdDbBlockTableRecordPtr block(part.safeOpenObject(OdDb::kForWrite));
    for (int i = 0; i < 30; ++i) {
      OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
      reference->setBlockTableRecord(inner);
      reference->setPosition(OdGePoint3d(i, 0, 0));
      block->appendOdDbEntity(reference.get());
    }
  }
  const OdDbObjectIdArray ids{part};
  AnonymousCopy renamer;
  renamer.source = part;
  odrxEvent()->addReactor(&renamer);
  for (auto _ : state) {
    OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
    db->deepCloneObjects(ids, db->getBlockTableId(), *mapping);
    benchmark::DoNotOptimize(mapping->numPairs());
  }
  odrxEvent()->removeReactor(&renamer);
}
BENCHMARK(BM_DeepCloneBlockOf30Entities)->Unit(benchmark::kMicrosecond);

void BM_MemoryPerSimpleEntity(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  double bytesPerEntity = 0;
  for (auto _ : state) {
    OdDbDatabasePtr db = OdDbDatabase::createObject();
    OdDbBlockTableRecordPtr space(db->getModelSpaceId().safeOpenObject(OdDb::kForWrite));
    const std::size_t before = mallinfo2().uordblks;
    for (int i = 0; i < count; ++i) {
      OdSmartPtr<BenchPoint> point = BenchPoint::createObject();
      point->point = OdGePoint3d(i, i, 0);
      space->appendOdDbEntity(point.get());
    }
    const std::size_t after = mallinfo2().uordblks;
    bytesPerEntity = static_cast<double>(after - before) / count - sizeof(OdGePoint3d);
  }
  state.counters["bytes_per_entity_beyond_geometry"] = bytesPerEntity;
}
BENCHMARK(BM_MemoryPerSimpleEntity)->Arg(1000000)->Iterations(1)->Unit(benchmark::kMillisecond);
}  // namespace

int main(int argc, char** argv) {
  odInitialize();
  BenchPoint::rxInit();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  BenchPoint::rxUninit();
  odUninitialize();
  return 0;
}
