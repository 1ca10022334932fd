// The element kinds that the graph treats specially, found by registered class name.
#include "core/CJbCustBlockElementClasses.h"

#include "platform/rx/OdRxClassDictionary.h"

OdRxClass* CJbCustBlockElementClasses::ParameterClass() {
  return OdRxClassDictionary::instance().getAt("JbCustBlockParameter");
}

OdRxClass* CJbCustBlockElementClasses::GripClass() {
  return OdRxClassDictionary::instance().getAt("JbCustBlockGrip");
}

OdRxClass* CJbCustBlockElementClasses::AlignmentGripClass() {
  return OdRxClassDictionary::instance().getAt("JbCustBlockAlignmentGrip");
}

namespace {
bool isOf(const OdRxObject* element, const OdRxClass* cls) {
  return element && cls && element->isKindOf(cls);
}
}  // namespace

bool CJbCustBlockElementClasses::IsParameter(const OdRxObject* element) {
  return isOf(element, ParameterClass());
}

bool CJbCustBlockElementClasses::IsGrip(const OdRxObject* element) {
  return isOf(element, GripClass());
}

bool CJbCustBlockElementClasses::IsAlignmentGrip(const OdRxObject* element) {
  return isOf(element, AlignmentGripClass());
}
