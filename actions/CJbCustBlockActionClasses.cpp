// Registration of the run-time classes of actions.
#include "actions/CJbCustBlockActionClasses.h"

#include "actions/CJbCustBlockAction.h"
#include "actions/CJbCustBlockMoveAction.h"

void CJbCustBlockActionClasses::RxInit() {
  CJbCustBlockAction::rxInit();
  CJbCustBlockMoveAction::rxInit();
}

void CJbCustBlockActionClasses::RxUninit() {
  CJbCustBlockMoveAction::rxUninit();
  CJbCustBlockAction::rxUninit();
}
