// The run-time classes of parameters and grips as one table: the parameter and grip bases, the ten
// parameter kinds and the nine grip kinds, each with its editing utilities and the properties it
// adds to its parent's. The module merges it with the other layers' tables into its own order;
// programs that use this layer alone (tests, benchmarks) register it through RxInit, after the
// core's, and remove it through RxUninit.
#pragma once

#include "core/CJbCustBlockKindRow.h"

class CJbCustBlockParameterClasses {
 public:
  static const CJbCustBlockKindTable& Table();
  static void RxInit();
  static void RxUninit();
};
