// Editing utilities of a parameter kind, made from the kind's row: the type of its main value, the
// grip it puts on its points, the registered actions that accept it, and a label with the current
// value.
#pragma once

#include "core/CJbCustBlockKindRow.h"
#include "module/utilities/CJbCustBlockKindUtilsPE.h"

class CJbCustBlockParameterUtilsPE : public CJbCustBlockKindUtilsPE {
 public:
  explicit CJbCustBlockParameterUtilsPE(const CJbCustBlockKindRow& row);

  Family GetFamily() const override { return Family::kParameter; }
  int GetValueType() const override { return m_valueType; }
  OdString GetGripKind() const override;
  OdArray<OdString> GetPartnerKinds() const override;
  // "name = value", or the name alone for a kind without a value.
  OdString GetLabel(const OdRxObject* object) const override;

 private:
  int m_valueType;
  ClassGetter m_gripKind;
};
