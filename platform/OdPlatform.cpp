#include "platform/OdPlatform.h"

#include <iterator>

#include "platform/host/OdEdCommand.h"
#include "platform/resbuf/OdResBuf.h"
#include "platform/rx/OdRxClass.h"
#include "platform/rx/OdRxDynamicLinker.h"
#include "platform/rx/OdRxModule.h"

namespace {
bool g_initialized = false;

// Each entry registers one class; the list is in parent-first order and is undone backwards.
struct ClassRegistration {
  void (*init)();
  void (*uninit)();
};

const ClassRegistration kPlatformClasses[] = {
    {&OdRxObject::rxInit, &OdRxObject::rxUninit},
    {&OdRxClass::rxInit, &OdRxClass::rxUninit},
    {&OdRxModule::rxInit, &OdRxModule::rxUninit},
    {&OdResBuf::rxInit, &OdResBuf::rxUninit},
    {&OdEdCommand::rxInit, &OdEdCommand::rxUninit},
};
}  // namespace

void odInitialize() {
  if (g_initialized) return;
  for (const auto& registration : kPlatformClasses) registration.init();
  g_initialized = true;
}

void odUninitialize() {
  if (!g_initialized) return;
  OdRxDynamicLinker::instance().unloadAll();
  for (auto it = std::rbegin(kPlatformClasses); it != std::rend(kPlatformClasses); ++it)
    it->uninit();
  g_initialized = false;
}

bool odIsInitialized() { return g_initialized; }
