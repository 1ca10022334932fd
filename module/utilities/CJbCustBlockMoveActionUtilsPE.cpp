#include "module/utilities/CJbCustBlockMoveActionUtilsPE.h"

#include "actions/CJbCustBlockMoveAction.h"

CJbCustBlockMoveActionUtilsPE::CJbCustBlockMoveActionUtilsPE()
    : CJbCustBlockActionUtilsPE(&CJbCustBlockMoveAction::desc, "Move", "MOVE") {}
