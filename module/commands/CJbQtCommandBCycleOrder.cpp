#include "module/commands/CJbQtCommandBCycleOrder.h"

void CJbQtCommandBCycleOrder::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  const OdArray<int> order = graph->GetCyclingOrder(false);
  for (unsigned i = 0; i < order.length(); ++i)
    Tell(OdString::format("%u: ", i + 1) + LabelOf(graph->GetNode(order[i]).get()));
  unsigned from = 0, to = 0;
  if (AskMove("Move (from,to; empty keeps the order):", order.length(), from, to))
    graph->MoveCyclingOrder(from, to);
}
