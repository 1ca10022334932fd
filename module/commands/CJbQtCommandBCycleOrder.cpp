#include "module/commands/CJbQtCommandBCycleOrder.h"

#include <cstdio>

void CJbQtCommandBCycleOrder::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  const OdArray<int> order = graph->GetCyclingOrder(false);
  for (unsigned i = 0; i < order.length(); ++i)
    Tell(OdString::format("%u: ", i + 1) + LabelOf(graph->GetNode(order[i]).get()));
  const OdString answer = Ask("Move (from,to; empty keeps the order):");
  if (answer.isEmpty()) return;
  unsigned from = 0, to = 0;
  if (std::sscanf(answer.c_str(), "%u,%u", &from, &to) != 2 || from < 1 || to < 1 ||
      from > order.length() || to > order.length())
    throw OdError(eInvalidInput,
                  OdString::format("\"%s\" is no move; type two positions from 1 "
                                   "to %u as from,to",
                                   answer.c_str(), static_cast<unsigned>(order.length()))
                      .str());
  graph->MoveCyclingOrder(from - 1, to - 1);
}
