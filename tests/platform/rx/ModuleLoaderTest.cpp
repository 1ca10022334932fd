#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/rx/OdRxClassDictionary.h"
#include "platform/rx/OdRxDynamicLinker.h"

namespace {
OdString testModulePath(const char* name) {
  return OdString(std::string(JBCB_BIN_DIR) + "/lib" + name + ".so");
}

OdResult loadFailure(const OdString& path) {
  try {
    OdRxDynamicLinker::instance().loadModule(path);
  } catch (const OdError& e) {
    return e.code();
  }
  return eOk;
}
}  // namespace

TEST(ModuleLoader, LoadsInitialisesAndUnloadsOnce) {
  auto& linker = OdRxDynamicLinker::instance();
  OdRxModulePtr module = linker.loadModule(testModulePath("jbtest_module"));
  ASSERT_FALSE(module.isNull());
  EXPECT_EQ(module->moduleName(), "jbtest_module");
  EXPECT_STREQ(std::getenv("JBTEST_MODULE_STATE"), "initialised");
  EXPECT_TRUE(OdRxClassDictionary::instance().has("JbTestModuleClass"));
  // Loading again hands back the same module without a second initApp.
  EXPECT_EQ(linker.loadModule(testModulePath("jbtest_module")).get(), module.get());

  module.release();
  EXPECT_TRUE(linker.unloadModule("jbtest_module"));
  EXPECT_STREQ(std::getenv("JBTEST_MODULE_STATE"), "uninitialised");
  EXPECT_FALSE(OdRxClassDictionary::instance().has("JbTestModuleClass"));
  EXPECT_FALSE(linker.unloadModule("jbtest_module"));
}

TEST(ModuleLoader, RefusesWhatIsNotAModuleForThisPlatform) {
  EXPECT_EQ(loadFailure(testModulePath("jbtest_old_module")), eIncompatibleVersion);
  EXPECT_EQ(loadFailure(testModulePath("jbtest_no_entry")), eMissingSymbol);
  EXPECT_EQ(loadFailure(testModulePath("does_not_exist")), eDLLLoadFailed);
  // A file that is not a library at all.
  EXPECT_EQ(loadFailure(OdString(std::string(JBCB_BIN_DIR) + "/../CMakeCache.txt")),
            eDLLLoadFailed);
  EXPECT_TRUE(OdRxDynamicLinker::instance().loadedModules().empty());
}
