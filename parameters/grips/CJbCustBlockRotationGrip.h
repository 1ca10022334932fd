// The grip of a rotation parameter: dragged around the parameter's base point.
#pragma once

#include "parameters/grips/CJbCustBlockGrip.h"

class CJbCustBlockRotationGrip : public CJbCustBlockGrip {
  ODRX_DECLARE_MEMBERS(CJbCustBlockRotationGrip);

 public:
  CJbCustBlockRotationGrip();
  ~CJbCustBlockRotationGrip() override;

  OdString GetBaseName() const override;
  GripType GetType() const override;
};

using CJbCustBlockRotationGripPtr = OdSmartPtr<CJbCustBlockRotationGrip>;
