// The element kinds that the graph treats specially but that live in the layers above it
// (parameters, grips), found by their registered class names. A kind that is not registered has
// no members.
#pragma once

class OdRxClass;
class OdRxObject;

class CJbCustBlockElementClasses {
 public:
  static OdRxClass* ParameterClass();
  static OdRxClass* GripClass();
  static OdRxClass* AlignmentGripClass();

  static bool IsParameter(const OdRxObject* element);
  static bool IsGrip(const OdRxObject* element);
  static bool IsAlignmentGrip(const OdRxObject* element);
};
