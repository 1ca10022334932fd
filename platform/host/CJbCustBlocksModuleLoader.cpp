#include "platform/host/CJbCustBlocksModuleLoader.h"

#include "platform/base/OdError.h"
#include "platform/rx/OdRxDynamicLinker.h"

bool CJbCustBlocksModuleLoader::Load(const OdString& folder, OdString* reason) {
  try {
    OdRxDynamicLinker::instance().loadModule(folder + "/libJbCustomizableBlocks.so");
    return true;
  } catch (const OdError& error) {
    if (reason) *reason = error.description();
    return false;
  }
}
