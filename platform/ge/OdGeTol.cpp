// The global geometric tolerance.
#include "platform/ge/OdGeTol.h"

OdGeTol OdGeContext::gTol(1e-10, 1e-10);
