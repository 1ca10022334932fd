// What a parameter needs of an action connected to it.
#include "parameters/CJbCustBlockParameterPointBinding.h"

CJbCustBlockParameterPointBinding::~CJbCustBlockParameterPointBinding() = default;
