// Registration of the core's run-time classes, parents first, and their removal in reverse.
// The module registers them as part of its own fixed order; programs that use the core alone
// (tests, benchmarks) call these.
#pragma once

class CJbCustBlockCoreClasses {
 public:
  static void RxInit();
  static void RxUninit();
};
