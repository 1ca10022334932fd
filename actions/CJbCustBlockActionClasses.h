// The run-time classes of actions as one table: the action base and the eight action kinds, each
// with its editing utilities and the properties it adds to its parent's. The module merges it
// with the other layers' tables into its own order; programs that use this layer alone (tests,
// benchmarks) register it through RxInit, after the parameters', and remove it through RxUninit.
#pragma once

#include "core/CJbCustBlockKindRow.h"

class CJbCustBlockActionClasses {
 public:
  static const CJbCustBlockKindTable& Table();
  static void RxInit();
  static void RxUninit();
};
