// The core's run-time classes as one table: the element base, the proxy and settings elements,
// the graph and the graph reactor, with the palette properties of the element and the proxy. The
// module merges it with the other layers' tables into its own order; programs that use the core
// alone (tests, benchmarks) register it through RxInit and remove it through RxUninit.
#pragma once

#include "core/CJbCustBlockKindRow.h"

class CJbCustBlockCoreClasses {
 public:
  static const CJbCustBlockKindTable& Table();
  static void RxInit();
  static void RxUninit();
};
