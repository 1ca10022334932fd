// Registration of the run-time classes of parameters and grips.
#include "parameters/CJbCustBlockParameterClasses.h"

#include <iterator>

#include "parameters/CJbCustBlock2PointParameter.h"
#include "parameters/CJbCustBlockAlignmentParameter.h"
#include "parameters/CJbCustBlockBasePointParameter.h"
#include "parameters/CJbCustBlockFlipParameter.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockLookupParameter.h"
#include "parameters/CJbCustBlockParameter.h"
#include "parameters/CJbCustBlockPointParameter.h"
#include "parameters/CJbCustBlockPolarParameter.h"
#include "parameters/CJbCustBlockRotationParameter.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"
#include "parameters/CJbCustBlockXYParameter.h"
#include "parameters/grips/CJbCustBlockAlignmentGrip.h"
#include "parameters/grips/CJbCustBlockBaseGrip.h"
#include "parameters/grips/CJbCustBlockFlipGrip.h"
#include "parameters/grips/CJbCustBlockGrip.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"
#include "parameters/grips/CJbCustBlockLookupGrip.h"
#include "parameters/grips/CJbCustBlockPolarGrip.h"
#include "parameters/grips/CJbCustBlockRotationGrip.h"
#include "parameters/grips/CJbCustBlockVisibilityGrip.h"
#include "parameters/grips/CJbCustBlockXYGrip.h"

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
    registration<CJbCustBlockPointParameter>(),
    registration<CJbCustBlockLinearParameter>(),
    registration<CJbCustBlockRotationParameter>(),
    registration<CJbCustBlockPolarParameter>(),
    registration<CJbCustBlockXYParameter>(),
    registration<CJbCustBlockVisibilityParameter>(),
    registration<CJbCustBlockBasePointParameter>(),
    registration<CJbCustBlockAlignmentParameter>(),
    registration<CJbCustBlockFlipParameter>(),
    registration<CJbCustBlockLookupParameter>(),
    registration<CJbCustBlockBaseGrip>(),
    registration<CJbCustBlockPolarGrip>(),
    registration<CJbCustBlockXYGrip>(),
    registration<CJbCustBlockLinearGrip>(),
    registration<CJbCustBlockRotationGrip>(),
    registration<CJbCustBlockFlipGrip>(),
    registration<CJbCustBlockVisibilityGrip>(),
    registration<CJbCustBlockLookupGrip>(),
    registration<CJbCustBlockAlignmentGrip>(),
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
