// A grip that moves one point freely: the base, point and corner grips.
#pragma once

#include "parameters/grips/CJbCustBlockGrip.h"

class CJbCustBlockBaseGrip : public CJbCustBlockGrip {
  ODRX_DECLARE_MEMBERS(CJbCustBlockBaseGrip);

 public:
  CJbCustBlockBaseGrip();
  ~CJbCustBlockBaseGrip() override;

  OdString GetBaseName() const override;
  GripType GetType() const override;
};

using CJbCustBlockBaseGripPtr = OdSmartPtr<CJbCustBlockBaseGrip>;
