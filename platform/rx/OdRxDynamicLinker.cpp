#include "platform/rx/OdRxDynamicLinker.h"

#include <dlfcn.h>

#include <algorithm>
#include <string>

namespace {
OdString moduleNameOf(const OdString& path) {
  std::string name = path.str();
  const auto slash = name.find_last_of('/');
  if (slash != std::string::npos) name.erase(0, slash + 1);
  if (name.rfind("lib", 0) == 0) name.erase(0, 3);
  const auto dot = name.find('.');
  if (dot != std::string::npos) name.erase(dot);
  return OdString(name);
}

// Closes a library handle unless ownership was handed on.
struct LibraryGuard {
  void* handle;
  ~LibraryGuard() {
    if (handle) dlclose(handle);
  }
};
}  // namespace

OdRxDynamicLinker& OdRxDynamicLinker::instance() {
  static OdRxDynamicLinker linker;
  return linker;
}

OdRxModulePtr OdRxDynamicLinker::loadModule(const OdString& path) {
  const OdString name = moduleNameOf(path);
  auto existing = m_modules.find(name);
  if (existing != m_modules.end()) return existing->second.module;

  dlerror();
  LibraryGuard library{dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)};
  if (!library.handle) {
    const char* why = dlerror();
    throw OdError(eDLLLoadFailed,
                  "cannot load module " + path.str() + ": " + (why ? why : "unknown reason"));
  }
  auto getVersion = reinterpret_cast<OdGetApiVersionFn>(dlsym(library.handle, "odrxGetAPIVersion"));
  auto create =
      reinterpret_cast<OdCreateModuleObjectFn>(dlsym(library.handle, "odrxCreateModuleObject"));
  if (!getVersion || !create)
    throw OdError(eMissingSymbol,
                  path.str() + " is not a module: it does not export " +
                      (getVersion ? "odrxCreateModuleObject" : "odrxGetAPIVersion"));

  int major = 0, minor = 0, maintenance = 0, build = 0;
  getVersion(major, minor, maintenance, build);
  // Major and minor fix the binary interface; maintenance and build releases stay compatible.
  if (major != kOdApiVersionMajor || minor != kOdApiVersionMinor)
    throw OdError(
        eIncompatibleVersion,
        OdString::format("module %s was built for interface %d.%d.%d.%d, this platform "
                         "offers %d.%d.%d.%d",
                         path.c_str(), major, minor, maintenance, build, kOdApiVersionMajor,
                         kOdApiVersionMinor, kOdApiVersionMaintenance, kOdApiVersionBuild)
            .str());

  OdRxModulePtr module(create());
  if (module.isNull()) throw OdError(eDLLLoadFailed, path.str() + " returned no module object");
  module->setModuleName(name);
  module->initApp();

  Loaded& entry = m_modules[name];
  entry.handle = library.handle;
  library.handle = nullptr;
  entry.path = path;
  entry.module = module;
  entry.sequence = ++m_sequence;
  return module;
}

void OdRxDynamicLinker::unload(std::map<OdString, Loaded>::iterator entry) {
  void* handle = entry->second.handle;
  OdRxModulePtr module = entry->second.module;
  m_modules.erase(entry);
  module->uninitApp();
  // The module's code must outlive every object it made; the last reference goes here.
  module.release();
  if (handle) dlclose(handle);
}

bool OdRxDynamicLinker::unloadModule(const OdString& moduleName) {
  auto entry = m_modules.find(moduleName);
  if (entry == m_modules.end()) return false;
  unload(entry);
  return true;
}

void OdRxDynamicLinker::unloadAll() {
  while (!m_modules.empty()) {
    auto newest = std::max_element(
        m_modules.begin(), m_modules.end(),
        [](const auto& a, const auto& b) { return a.second.sequence < b.second.sequence; });
    unload(newest);
  }
}

OdRxModulePtr OdRxDynamicLinker::module(const OdString& moduleName) const {
  auto entry = m_modules.find(moduleName);
  return entry == m_modules.end() ? OdRxModulePtr() : entry->second.module;
}

std::vector<OdString> OdRxDynamicLinker::loadedModules() const {
  std::vector<OdString> names;
  for (const auto& entry : m_modules)
    names.push_back(entry.first);
  return names;
}
