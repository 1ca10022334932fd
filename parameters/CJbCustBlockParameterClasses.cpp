// Registration of the run-time classes of parameters and grips.
#include "parameters/CJbCustBlockParameterClasses.h"

#include <iterator>

#include "parameters/CJbCustBlock2PointParameter.h"
#include "parameters/CJbCustBlockParameter.h"
#include "parameters/grips/CJbCustBlockGrip.h"

namespace {
struct ClassRegistration {
  void (*init)();
  void (*uninit)();
};

template <class T>
constexpr ClassRegistration registration() {
  return {&T::rxInit, &T::rxUninit};
}

const ClassRegistration kParameterClasses[] = {
    registration<CJbCustBlockParameter>(),
    registration<CJbCustBlock2PointParameter>(),
    registration<CJbCustBlockGrip>(),
};
}  // namespace

void CJbCustBlockParameterClasses::RxInit() {
  for (const auto& entry : kParameterClasses)
    entry.init();
}

void CJbCustBlockParameterClasses::RxUninit() {
  for (auto it = std::rbegin(kParameterClasses); it != std::rend(kParameterClasses); ++it)
    it->uninit();
}
