// A module built for an older interface version: the loader must refuse it before creating it.
#include <cstdlib>

#include "platform/rx/OdRxModule.h"

ODRX_MODULE_EXPORT OdRxModule* odrxCreateModuleObject() {
  std::abort();  // never reached: the version check comes first
}

ODRX_MODULE_EXPORT void odrxGetAPIVersion(int& major, int& minor, int& maintenance, int& build) {
  major = 3;
  minor = 9;
  maintenance = 0;
  build = 1;
}
