// Editing utilities of a grip kind, made from the kind's row: the parameter kinds that put this
// grip on their points, and a label with the place where the grip is drawn.
#pragma once

#include "core/CJbCustBlockKindRow.h"
#include "module/utilities/CJbCustBlockKindUtilsPE.h"

class CJbCustBlockGripUtilsPE : public CJbCustBlockKindUtilsPE {
 public:
  explicit CJbCustBlockGripUtilsPE(const CJbCustBlockKindRow& row);

  Family GetFamily() const override { return Family::kGrip; }
  // Grips are dragged to points.
  int GetValueType() const override;
  OdString GetGripKind() const override { return OdString(); }
  OdArray<OdString> GetPartnerKinds() const override;
  // "name @ x, y, z" at the display position.
  OdString GetLabel(const OdRxObject* object) const override;
};
