#include "cli/ModuleLoading.h"

#include <cstdio>

#include "platform/base/OdError.h"
#include "platform/rx/OdRxDynamicLinker.h"

bool loadCustomizableBlocksModule(const QString& folder) {
  const QString path = folder + "/libJbCustomizableBlocks.so";
  try {
    OdRxDynamicLinker::instance().loadModule(OdString(path.toStdString()));
    return true;
  } catch (const OdError& error) {
    std::fprintf(stderr, "jbcb: warning: customizable blocks are kept as read: %s\n",
                 error.description().c_str());
    return false;
  }
}
