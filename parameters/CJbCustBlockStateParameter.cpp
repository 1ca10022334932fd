// What a state grip needs of its parameter.
#include "parameters/CJbCustBlockStateParameter.h"

CJbCustBlockStateParameter::~CJbCustBlockStateParameter() = default;
