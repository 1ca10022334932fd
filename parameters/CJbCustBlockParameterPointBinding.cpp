// What a parameter needs of an action connected to it.
#include "parameters/CJbCustBlockParameterPointBinding.h"

#include "core/CJbCustBlockElement.h"

CJbCustBlockParameterPointBinding::~CJbCustBlockParameterPointBinding() = default;

const CJbCustBlockParameterPointBinding* CJbCustBlockParameterPointBinding::Of(
    const CJbCustBlockElement* element) {
  return dynamic_cast<const CJbCustBlockParameterPointBinding*>(element);
}
