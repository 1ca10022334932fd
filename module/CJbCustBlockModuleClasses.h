// The module's run-time classes in registration order: the layers' tables merged, bottom up. The
// order is parents before children: the element, proxy, settings, parameter, two-point parameter,
// action and grip bases, then the ten parameter kinds, the eight actions and the nine grip kinds,
// then the graph, the storage, the graph reactor, the deep-clone reactor and the storage's grip
// points. The storage lists no table of its own yet, so its rows are declared here.
#pragma once

#include <initializer_list>

#include "core/CJbCustBlockKindRow.h"

class CJbCustBlockModuleClasses {
 public:
  // The classes the module registers.
  static const CJbCustBlockKindTable& Table();
  // `tables`, one per layer from the bottom up, merged into registration order: each row takes its
  // place by its stage and family (CJbCustBlockKindRow::Rank), rows of one place keep the order
  // of their tables.
  static CJbCustBlockKindTable Merge(std::initializer_list<const CJbCustBlockKindTable*> tables);
  // The storage's classes: the storage object, the deep-clone reactor and the grip points of
  // block references.
  static const CJbCustBlockKindTable& StorageTable();
};
