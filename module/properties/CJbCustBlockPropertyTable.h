// Which classes of the module show properties in the palette and which properties each shows:
// every concrete element kind, and the bases (element, proxy, parameter, two-point parameter,
// action, grip) for kinds that have no list of their own. Lists are in registration order.
#pragma once

#include <vector>

#include "module/properties/CJbPropertyPEImpl.h"

class CJbCustBlockPropertyTable {
 public:
  struct Entry {
    CJbPropertyPEImpl::ClassGetter kind;
    OdArray<CJbCustBlockProperty> properties;
  };
  static std::vector<Entry> Entries();
};
