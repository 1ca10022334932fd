// Editing utilities of an action kind, made from the kind's row: the parameters an action accepts
// and a label naming the parameter that drives it.
#pragma once

#include "core/CJbCustBlockKindRow.h"
#include "module/utilities/CJbCustBlockKindUtilsPE.h"

class CJbCustBlockActionUtilsPE : public CJbCustBlockKindUtilsPE {
 public:
  explicit CJbCustBlockActionUtilsPE(const CJbCustBlockKindRow& row);

  Family GetFamily() const override { return Family::kAction; }
  int GetValueType() const override { return 0; }
  OdString GetGripKind() const override { return OdString(); }
  // The registered parameter kinds the action accepts.
  OdArray<OdString> GetPartnerKinds() const override;
  // "name ← parameter", or the name alone while no parameter drives it.
  OdString GetLabel(const OdRxObject* object) const override;
};
