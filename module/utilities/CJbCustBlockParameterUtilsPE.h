// Editing utilities shared by parameter kinds: the type of the kind's main value, the grip it puts
// on its points, the registered actions that accept it, and a label with the current value.
#pragma once

#include "module/utilities/CJbCustBlockKindUtilsPE.h"

class CJbCustBlockParameterUtilsPE : public CJbCustBlockKindUtilsPE {
 public:
  Family GetFamily() const override { return Family::kParameter; }
  int GetValueType() const override { return m_valueType; }
  OdString GetGripKind() const override { return OdString(m_gripKind); }
  OdArray<OdString> GetPartnerKinds() const override;
  // "name = value", or the name alone for a kind without a value.
  OdString GetLabel(const OdRxObject* object) const override;

 protected:
  CJbCustBlockParameterUtilsPE(ClassGetter kind, const char* displayName, const char* keyword,
                               int valueType, const char* gripKind);

 private:
  int m_valueType;
  const char* m_gripKind;
};
