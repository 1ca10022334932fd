// Loads module libraries at run time: dlopen, interface-version check, module object, initApp;
// unloading runs uninitApp and closes the library. A module is loaded once however often asked.
#pragma once

#include <map>

#include "platform/rx/OdRxModule.h"

class OdRxDynamicLinker {
 public:
  static OdRxDynamicLinker& instance();

  // Loads the library at path (or returns the module already loaded from it). Fails with
  // eDLLLoadFailed (not a loadable library), eMissingSymbol (no entry points) or
  // eIncompatibleVersion (built for another interface version); nothing stays loaded on failure.
  OdRxModulePtr loadModule(const OdString& path);
  // Unloads a module by name; false when no module of that name is loaded.
  bool unloadModule(const OdString& moduleName);
  // Unloads every module, newest first.
  void unloadAll();
  OdRxModulePtr module(const OdString& moduleName) const;
  std::vector<OdString> loadedModules() const;

 private:
  struct Loaded {
    void* handle = nullptr;
    OdString path;
    OdRxModulePtr module;
    int sequence = 0;
  };
  void unload(std::map<OdString, Loaded>::iterator entry);

  std::map<OdString, Loaded> m_modules;
  int m_sequence = 0;
};
