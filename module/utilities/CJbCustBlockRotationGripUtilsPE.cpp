#include "module/utilities/CJbCustBlockRotationGripUtilsPE.h"

#include "parameters/grips/CJbCustBlockRotationGrip.h"

CJbCustBlockRotationGripUtilsPE::CJbCustBlockRotationGripUtilsPE()
    : CJbCustBlockGripUtilsPE(&CJbCustBlockRotationGrip::desc, "Rotation Grip", "ROTATION") {}
