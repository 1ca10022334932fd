// Cost of the evaluation graph's hot paths on a graph of 50 elements: one instance evaluation
// (three passes over a chain in which every element is reached), copying every node through its
// filed proxy form one append at a time, cloning the whole graph (what each instance edit starts
// from), and saving and loading one instance state.
#include <benchmark/benchmark.h>

#include "core/CJbCustBlockCoreClasses.h"
#include "core/CJbCustBlockElement.h"
#include "core/CJbCustBlockProxyElement.h"
#include "core/CJbDbCustBlockGraph.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "platform/OdPlatform.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/rx/OdRxClass.h"

// An element whose hooks do nothing; the first of the chain asks for evaluation.
class IdleElement : public CJbCustBlockElement {
  ODRX_DECLARE_MEMBERS(IdleElement);

 public:
  bool NeedEvaluate() const override { return first; }
  OdResult dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) override {
    const OdResult result = CJbCustBlockElement::dwgInFields(filer, graph);
    if (result != eOk) return result;
    value = filer->rdDouble();
    first = filer->rdBool();
    return eOk;
  }
  void dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const override {
    CJbCustBlockElement::dwgOutFields(filer, graph);
    filer->wrDouble(value);
    filer->wrBool(first);
  }

  bool first = false;
  double value = 1.5;
};

ODRX_CONS_DEFINE_MEMBERS(IdleElement, CJbCustBlockElement)

namespace {
constexpr int kElements = 50;

// 50 elements, each connected to the next.
CJbDbCustBlockGraphPtr makeChain() {
  CJbDbCustBlockGraphPtr graph = CJbDbCustBlockGraph::createObject();
  CJbCustBlockElementPtr previous;
  for (int i = 0; i < kElements; ++i) {
    OdSmartPtr<IdleElement> element(new IdleElement);
    element->first = i == 0;
    graph->AppendNode(element);
    if (previous) previous->AddConnection(element->GetElementId(), false, true);
    previous = element;
  }
  return graph;
}

void BM_EvaluateInstance(benchmark::State& state) {
  CJbDbCustBlockGraphPtr graph = makeChain();
  for (auto _ : state)
    graph->Evaluate(OdDbObjectId::kNull, true);
  state.SetItemsProcessed(state.iterations() * kElements);
}
BENCHMARK(BM_EvaluateInstance);

void BM_CopyNodesThroughProxies(benchmark::State& state) {
  CJbDbCustBlockGraphPtr graph = makeChain();
  const OdArray<int> ids = graph->GetAllNodeIds();
  for (auto _ : state) {
    CJbDbCustBlockGraphPtr copy = CJbDbCustBlockGraph::createObject();
    for (int id : ids) {
      CJbCustBlockProxyElementPtr proxy =
          CJbCustBlockProxyElement::CreateProxyFromElement(graph->GetNode(id).get(), graph.get());
      copy->AppendNode(proxy->CreateElement(copy.get()));
    }
    benchmark::DoNotOptimize(copy.get());
  }
  state.SetItemsProcessed(state.iterations() * kElements);
}
BENCHMARK(BM_CopyNodesThroughProxies);

void BM_CloneGraph(benchmark::State& state) {
  CJbDbCustBlockGraphPtr graph = makeChain();
  for (auto _ : state) {
    OdRxObjectPtr clone = graph->clone();
    benchmark::DoNotOptimize(clone.get());
  }
  state.SetItemsProcessed(state.iterations() * kElements);
}
BENCHMARK(BM_CloneGraph);

void BM_SaveAndLoadInstance(benchmark::State& state) {
  CJbDbCustBlockGraphPtr graph = makeChain();
  CJbDbCustBlockGraphInstanceContextPtr context(new CJbDbCustBlockGraphInstanceContext(0, nullptr));
  for (auto _ : state) {
    OdResBufPtr chain = graph->SaveInstance(context.get());
    benchmark::DoNotOptimize(graph->LoadInstance(chain, context.get()));
  }
  state.SetItemsProcessed(state.iterations() * kElements);
}
BENCHMARK(BM_SaveAndLoadInstance);
}  // namespace

int main(int argc, char** argv) {
  odInitialize();
  CJbCustBlockCoreClasses::RxInit();
  IdleElement::rxInit();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  IdleElement::rxUninit();
  CJbCustBlockCoreClasses::RxUninit();
  odUninitialize();
  return 0;
}
