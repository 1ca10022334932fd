// What the graph knows of a parameter.
#include "core/CJbCustBlockGraphParameter.h"

#include "core/CJbCustBlockElement.h"

CJbCustBlockGraphParameter::~CJbCustBlockGraphParameter() = default;

bool CJbCustBlockGraphParameter::Is(const CJbCustBlockElement* element) {
  return dynamic_cast<const CJbCustBlockGraphParameter*>(element) != nullptr;
}
