// The grip of a linear parameter's end: dragged along the parameter's line.
#pragma once

#include "parameters/grips/CJbCustBlockGrip.h"

class CJbCustBlockLinearGrip : public CJbCustBlockGrip {
  ODRX_DECLARE_MEMBERS(CJbCustBlockLinearGrip);

 public:
  CJbCustBlockLinearGrip();
  ~CJbCustBlockLinearGrip() override;

  OdString GetBaseName() const override;
  GripType GetType() const override;
};

using CJbCustBlockLinearGripPtr = OdSmartPtr<CJbCustBlockLinearGrip>;
