// Registration of the run-time classes of actions.
#include "actions/CJbCustBlockActionClasses.h"

#include "actions/CJbCustBlockAction.h"
#include "actions/CJbCustBlockArrayAction.h"
#include "actions/CJbCustBlockMoveAction.h"
#include "actions/CJbCustBlockPolarStretchAction.h"
#include "actions/CJbCustBlockStretchAction.h"

void CJbCustBlockActionClasses::RxInit() {
  CJbCustBlockAction::rxInit();
  CJbCustBlockMoveAction::rxInit();
  CJbCustBlockStretchAction::rxInit();
  CJbCustBlockPolarStretchAction::rxInit();
  CJbCustBlockArrayAction::rxInit();
}

void CJbCustBlockActionClasses::RxUninit() {
  CJbCustBlockArrayAction::rxUninit();
  CJbCustBlockPolarStretchAction::rxUninit();
  CJbCustBlockStretchAction::rxUninit();
  CJbCustBlockMoveAction::rxUninit();
  CJbCustBlockAction::rxUninit();
}
