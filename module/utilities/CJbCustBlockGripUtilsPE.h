// Editing utilities shared by grip kinds: the parameter kinds that put this grip on their points,
// and a label with the place where the grip is drawn.
#pragma once

#include "module/utilities/CJbCustBlockKindUtilsPE.h"

class CJbCustBlockGripUtilsPE : public CJbCustBlockKindUtilsPE {
 public:
  Family GetFamily() const override { return Family::kGrip; }
  // Grips are dragged to points.
  int GetValueType() const override;
  OdString GetGripKind() const override { return OdString(); }
  OdArray<OdString> GetPartnerKinds() const override;
  // "name @ x, y, z" at the display position.
  OdString GetLabel(const OdRxObject* object) const override;

 protected:
  CJbCustBlockGripUtilsPE(ClassGetter kind, const char* displayName, const char* keyword);
};
