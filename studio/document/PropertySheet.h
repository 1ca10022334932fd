// What the properties palette lists for a drawing's selection: for one selected entity, the
// host's own properties of it and then those of the property extension its class carries; for
// none or several, nothing.
#pragma once

#include <memory>
#include <vector>

#include "studio/document/PropertySource.h"

class OdDbObjectId;

class PropertySheet {
 public:
  static std::vector<std::unique_ptr<PropertySource>> of(
      const std::vector<OdDbObjectId>& selection);
};
