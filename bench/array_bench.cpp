// Cost of one array edit on a block reference's copy: a linear parameter spanning 1,001 spacings
// fills its length with 1,000 copies of a 10-entity selection (10,000 new entities), after erasing
// the copies of the edit before, as every edit does. As in a drawing session, erased copies stay in
// the database until it is saved; nothing purges them between edits.
#include <benchmark/benchmark.h>

#include "actions/CJbCustBlockActionClasses.h"
#include "actions/CJbCustBlockArrayAction.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "core/CJbDbCustBlockGraph.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "platform/OdPlatform.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"

namespace {
constexpr int kSelection = 10;
constexpr int kCopies = 1000;

void BM_ArrayEdit(benchmark::State& state) {
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  OdDbObjectIdArray selection;
  {
    OdSmartPtr<OdDbBlockTable> table =
        OdSmartPtr<OdDbBlockTable>(db->getBlockTableId().safeOpenObject(OdDb::kForWrite));
    OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
    block->setName("*U1");
    table->add(block.get());
    for (int i = 0; i < kSelection; ++i) {
      OdSmartPtr<OdDbLine> line = OdDbLine::createObject();
      line->setStartPoint(OdGePoint3d(0, i * 0.1, 0));
      line->setEndPoint(OdGePoint3d(0.5, i * 0.1, 0));
      selection.append(block->appendOdDbEntity(line.get()));
    }
  }
  CJbDbCustBlockGraphPtr graph = CJbDbCustBlockGraph::createObject();
  CJbCustBlockLinearParameterPtr linear(new CJbCustBlockLinearParameter);
  graph->AppendNode(linear);
  linear->SetDefinedPosition(1, OdGePoint3d(kCopies + 1, 0, 0));
  CJbCustBlockArrayActionPtr array(new CJbCustBlockArrayAction);
  graph->AppendNode(array);
  array->SetParameter(linear->GetElementId());
  array->SetEntities(0, selection);
  array->SetColumnDistance(1.0);
  CJbDbCustBlockGraphEvaluationContextPtr context(
      new CJbDbCustBlockGraphEvaluationContext(0, OdDbObjectId::kNull));
  for (auto _ : state) {
    array->BeginEvaluate(context.get());
    array->Evaluate(context.get());
    if (!array->EndEvaluate(context.get()) || array->GetCopies().length() != kSelection * kCopies)
      state.SkipWithError("the array was not made");
  }
  state.SetItemsProcessed(state.iterations() * kSelection * kCopies);
}
BENCHMARK(BM_ArrayEdit)->Unit(benchmark::kMillisecond);
}  // namespace

int main(int argc, char** argv) {
  odInitialize();
  CJbCustBlockCoreClasses::RxInit();
  CJbCustBlockParameterClasses::RxInit();
  CJbCustBlockActionClasses::RxInit();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  CJbCustBlockActionClasses::RxUninit();
  CJbCustBlockParameterClasses::RxUninit();
  CJbCustBlockCoreClasses::RxUninit();
  odUninitialize();
  return 0;
}
