// The global geometric tolerance.
#include "platform/ge/OdGeTol.h"

OdGeTol OdGeContext::gTol(OdGeConstants::kTolerance, OdGeConstants::kTolerance);
