// Registration of the run-time classes of actions.
#include "actions/CJbCustBlockActionClasses.h"

#include "actions/CJbCustBlockAction.h"

void CJbCustBlockActionClasses::RxInit() {
  CJbCustBlockAction::rxInit();
}

void CJbCustBlockActionClasses::RxUninit() {
  CJbCustBlockAction::rxUninit();
}
