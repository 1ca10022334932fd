#include "cli/CustomBlockClasses.h"

#include "actions/CJbCustBlockActionClasses.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "storage/CJbCustBlockStorageClasses.h"

CustomBlockClasses::CustomBlockClasses() {
  CJbCustBlockCoreClasses::RxInit();
  CJbCustBlockParameterClasses::RxInit();
  CJbCustBlockActionClasses::RxInit();
  CJbCustBlockStorageClasses::RxInit();
}

CustomBlockClasses::~CustomBlockClasses() {
  CJbCustBlockStorageClasses::RxUninit();
  CJbCustBlockActionClasses::RxUninit();
  CJbCustBlockParameterClasses::RxUninit();
  CJbCustBlockCoreClasses::RxUninit();
}
