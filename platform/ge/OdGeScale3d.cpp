// The unit scale.
#include "platform/ge/OdGeScale3d.h"

const OdGeScale3d OdGeScale3d::kIdentity(1.0, 1.0, 1.0);
