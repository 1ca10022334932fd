// The grip of a polar parameter's point. It shares the base grip's name series.
#pragma once

#include "parameters/grips/CJbCustBlockGrip.h"

class CJbCustBlockPolarGrip : public CJbCustBlockGrip {
  ODRX_DECLARE_MEMBERS(CJbCustBlockPolarGrip);

 public:
  CJbCustBlockPolarGrip();
  ~CJbCustBlockPolarGrip() override;

  OdString GetBaseName() const override;
  GripType GetType() const override;
};

using CJbCustBlockPolarGripPtr = OdSmartPtr<CJbCustBlockPolarGrip>;
