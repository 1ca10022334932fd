// Loads the customizable-blocks module that is installed next to the jbcb executable, as a host
// loads its extension modules at start.
#pragma once

#include <QString>

// Loads the module from `folder` through the platform's module loader. On failure jbcb still
// works, keeping customizable-block data as it was read, so a warning is printed and false
// returned.
bool loadCustomizableBlocksModule(const QString& folder);
