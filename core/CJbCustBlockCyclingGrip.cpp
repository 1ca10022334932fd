// What the graph needs of a grip to build the insertion-point cycling order.
#include "core/CJbCustBlockCyclingGrip.h"

CJbCustBlockCyclingGrip::~CJbCustBlockCyclingGrip() = default;
