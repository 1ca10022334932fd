// Registration of the storage's run-time classes, and their removal in reverse. The module
// registers them as part of its own fixed order; programs that use this layer alone (tests,
// benchmarks) call these after the action classes' registration.
#pragma once

class CJbCustBlockStorageClasses {
 public:
  static void RxInit();
  static void RxUninit();
};
