#include "module/utilities/CJbCustBlockRotateActionUtilsPE.h"

#include "actions/CJbCustBlockRotateAction.h"

CJbCustBlockRotateActionUtilsPE::CJbCustBlockRotateActionUtilsPE()
    : CJbCustBlockActionUtilsPE(&CJbCustBlockRotateAction::desc, "Rotate", "ROTATE") {}
