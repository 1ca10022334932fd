// Registration of the run-time classes of actions.
#include "actions/CJbCustBlockActionClasses.h"

#include "actions/CJbCustBlockAction.h"
#include "actions/CJbCustBlockMoveAction.h"
#include "actions/CJbCustBlockStretchAction.h"

void CJbCustBlockActionClasses::RxInit() {
  CJbCustBlockAction::rxInit();
  CJbCustBlockMoveAction::rxInit();
  CJbCustBlockStretchAction::rxInit();
}

void CJbCustBlockActionClasses::RxUninit() {
  CJbCustBlockStretchAction::rxUninit();
  CJbCustBlockMoveAction::rxUninit();
  CJbCustBlockAction::rxUninit();
}
