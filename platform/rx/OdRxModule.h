// A run-time extension module: a shared library whose module object registers its classes in
// initApp and removes them in uninitApp.
#pragma once

#include "platform/rx/OdRxClass.h"

// The interface version this platform offers; a module reports the one it was built for.
constexpr int kOdApiVersionMajor = 4;
constexpr int kOdApiVersionMinor = 3;
constexpr int kOdApiVersionMaintenance = 2;
constexpr int kOdApiVersionBuild = 74345;

class OdRxModule : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdRxModule);

 public:
  virtual void initApp() = 0;
  virtual void uninitApp() = 0;
  // The name the module was loaded under (its file name without folder and suffix).
  const OdString& moduleName() const { return m_name; }
  void setModuleName(const OdString& name) { m_name = name; }

 private:
  OdString m_name;
};
using OdRxModulePtr = OdSmartPtr<OdRxModule>;

// Entry points a module library exports.
#define ODRX_MODULE_EXPORT extern "C" __attribute__((visibility("default")))
using OdCreateModuleObjectFn = OdRxModule* (*)();
using OdGetApiVersionFn = void (*)(int& major, int& minor, int& maintenance, int& build);

// Defines both entry points for ModuleClass, reporting this platform's interface version.
#define ODRX_DEFINE_DYNAMIC_MODULE(ModuleClass)                                       \
  ODRX_MODULE_EXPORT OdRxModule* odrxCreateModuleObject() {                           \
    return new ModuleClass();                                                         \
  }                                                                                   \
  ODRX_MODULE_EXPORT void odrxGetAPIVersion(int& major, int& minor, int& maintenance, \
                                            int& build) {                             \
    major = kOdApiVersionMajor;                                                       \
    minor = kOdApiVersionMinor;                                                       \
    maintenance = kOdApiVersionMaintenance;                                           \
    build = kOdApiVersionBuild;                                                       \
  }
