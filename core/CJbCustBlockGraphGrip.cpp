// What the graph needs of a grip.
#include "core/CJbCustBlockGraphGrip.h"

#include "core/CJbCustBlockElement.h"

CJbCustBlockGraphGrip::~CJbCustBlockGraphGrip() = default;

const CJbCustBlockGraphGrip* CJbCustBlockGraphGrip::Of(const CJbCustBlockElement* element) {
  return dynamic_cast<const CJbCustBlockGraphGrip*>(element);
}
