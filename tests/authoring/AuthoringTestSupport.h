// Shared set-up of the authoring tests: the layers' classes registered once and a drawing.
#pragma once

#include "actions/CJbCustBlockActionClasses.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "platform/db/DbTestSupport.h"
#include "storage/CJbCustBlockStorageClasses.h"

class AuthoringTest : public DbTest {
 protected:
  static void SetUpTestSuite() {
    CJbCustBlockCoreClasses::RxInit();
    CJbCustBlockParameterClasses::RxInit();
    CJbCustBlockActionClasses::RxInit();
    CJbCustBlockStorageClasses::RxInit();
  }
  static void TearDownTestSuite() {
    CJbCustBlockStorageClasses::RxUninit();
    CJbCustBlockActionClasses::RxUninit();
    CJbCustBlockParameterClasses::RxUninit();
    CJbCustBlockCoreClasses::RxUninit();
  }
};
