// Loads the customizable-blocks module installed beside a host's executable, as a host loads its
// extension modules at start. Every host and the programs that stand in for one share it.
#pragma once

#include "platform/base/OdString.h"

class CJbCustBlocksModuleLoader {
 public:
  // Loads libJbCustomizableBlocks.so from `folder` through the platform's module loader. On
  // failure the loader's reason goes to `reason` (when given) and false is returned; a host then
  // still reads and writes drawings, keeping customizable-block data as it was read.
  static bool Load(const OdString& folder, OdString* reason = nullptr);
};
