// Registration of the run-time classes of parameters and grips, parents first, and their removal
// in reverse. The module registers them as part of its own fixed order; programs that use this
// layer alone (tests, benchmarks) call these after the core's registration.
#pragma once

class CJbCustBlockParameterClasses {
 public:
  static void RxInit();
  static void RxUninit();
};
