// Registration of the run-time classes of actions.
#include "actions/CJbCustBlockActionClasses.h"

#include "actions/CJbCustBlockAction.h"
#include "actions/CJbCustBlockArrayAction.h"
#include "actions/CJbCustBlockFlipAction.h"
#include "actions/CJbCustBlockLookupAction.h"
#include "actions/CJbCustBlockMoveAction.h"
#include "actions/CJbCustBlockPolarStretchAction.h"
#include "actions/CJbCustBlockRotateAction.h"
#include "actions/CJbCustBlockScaleAction.h"
#include "actions/CJbCustBlockStretchAction.h"

void CJbCustBlockActionClasses::RxInit() {
  CJbCustBlockAction::rxInit();
  CJbCustBlockMoveAction::rxInit();
  CJbCustBlockStretchAction::rxInit();
  CJbCustBlockPolarStretchAction::rxInit();
  CJbCustBlockScaleAction::rxInit();
  CJbCustBlockRotateAction::rxInit();
  CJbCustBlockArrayAction::rxInit();
  CJbCustBlockFlipAction::rxInit();
  CJbCustBlockLookupAction::rxInit();
}

void CJbCustBlockActionClasses::RxUninit() {
  CJbCustBlockLookupAction::rxUninit();
  CJbCustBlockFlipAction::rxUninit();
  CJbCustBlockArrayAction::rxUninit();
  CJbCustBlockRotateAction::rxUninit();
  CJbCustBlockScaleAction::rxUninit();
  CJbCustBlockPolarStretchAction::rxUninit();
  CJbCustBlockStretchAction::rxUninit();
  CJbCustBlockMoveAction::rxUninit();
  CJbCustBlockAction::rxUninit();
}
