// Registration of the core's run-time classes.
#include "core/CJbCustBlockCoreClasses.h"

#include <iterator>

#include "core/CJbCustBlockElement.h"
#include "core/CJbCustBlockGraphReactor.h"
#include "core/CJbCustBlockProxyElement.h"
#include "core/CJbCustBlockSettingsElement.h"
#include "core/CJbDbCustBlockGraph.h"

namespace {
struct ClassRegistration {
  void (*init)();
  void (*uninit)();
};

const ClassRegistration kCoreClasses[] = {
    {&CJbCustBlockElement::rxInit, &CJbCustBlockElement::rxUninit},
    {&CJbCustBlockProxyElement::rxInit, &CJbCustBlockProxyElement::rxUninit},
    {&CJbCustBlockSettingsElement::rxInit, &CJbCustBlockSettingsElement::rxUninit},
    {&CJbDbCustBlockGraph::rxInit, &CJbDbCustBlockGraph::rxUninit},
    {&CJbCustBlockGraphReactor::rxInit, &CJbCustBlockGraphReactor::rxUninit},
};
}  // namespace

void CJbCustBlockCoreClasses::RxInit() {
  for (const auto& registration : kCoreClasses)
    registration.init();
}

void CJbCustBlockCoreClasses::RxUninit() {
  for (auto it = std::rbegin(kCoreClasses); it != std::rend(kCoreClasses); ++it)
    it->uninit();
}
