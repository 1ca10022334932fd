// The grip of an XY parameter's corner.
#pragma once

#include "parameters/grips/CJbCustBlockGrip.h"

class CJbCustBlockXYGrip : public CJbCustBlockGrip {
  ODRX_DECLARE_MEMBERS(CJbCustBlockXYGrip);

 public:
  CJbCustBlockXYGrip();
  ~CJbCustBlockXYGrip() override;

  OdString GetBaseName() const override;
  GripType GetType() const override;
};

using CJbCustBlockXYGripPtr = OdSmartPtr<CJbCustBlockXYGrip>;
