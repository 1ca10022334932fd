// Registration of the run-time classes of actions, parents first, and their removal in reverse.
// The module registers them as part of its own fixed order; programs that use this layer alone
// (tests, benchmarks) call these after the parameters' registration.
#pragma once

class CJbCustBlockActionClasses {
 public:
  static void RxInit();
  static void RxUninit();
};
