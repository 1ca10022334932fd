// The grips a customizable block reference shows: the visible grips of its block's graph in the
// reference's state, placed in drawing coordinates through the reference's transform.
#pragma once

#include <string>
#include <vector>

#include "cli/blocks/CustomBlockCatalog.h"
#include "parameters/grips/CJbCustBlockGrip.h"

class CustomReferenceGrips {
 public:
  struct Grip {
    std::string name;
    int elementId = 0;
    CJbCustBlockGrip::GripType type = CJbCustBlockGrip::kPointGrip;
    OdGePoint3d position;  // drawing coordinates
  };

  // Empty for a reference whose block is not customizable.
  static std::vector<Grip> of(const CustomBlockCatalog& catalog, const OdDbObjectId& reference);
};
