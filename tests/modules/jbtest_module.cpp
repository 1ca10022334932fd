// A module that registers one class and one protocol extension, and records its calls.
#include <cstdlib>

#include "platform/rx/OdRxModule.h"

class JbTestModuleClass : public OdRxObject {
  ODRX_DECLARE_MEMBERS(JbTestModuleClass);
};
ODRX_CONS_DEFINE_MEMBERS(JbTestModuleClass, OdRxObject)

class JbTestModule : public OdRxModule {
 public:
  void initApp() override {
    JbTestModuleClass::rxInit();
    setenv("JBTEST_MODULE_STATE", "initialised", 1);
  }
  void uninitApp() override {
    JbTestModuleClass::rxUninit();
    setenv("JBTEST_MODULE_STATE", "uninitialised", 1);
  }
};

ODRX_DEFINE_DYNAMIC_MODULE(JbTestModule)
