// The block references a command edits: named by handle, or all references of a customizable
// block. Mistakes are OdErrors that say what the drawing has instead.
#pragma once

#include <string>
#include <vector>

#include "cli/blocks/CustomBlockCatalog.h"

class ReferenceSelection {
 public:
  // The block reference with that hexadecimal handle.
  static OdDbObjectId byHandle(OdDbDatabase* database, const std::string& handle);
  // The references of the customizable block of that name, by handle. Unless `all`, the block
  // must have exactly one.
  static std::vector<OdDbObjectId> ofBlock(const CustomBlockCatalog& catalog,
                                           const std::string& name, bool all);
};
