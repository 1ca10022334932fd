// The grip of a visibility parameter: always shown, it requests a visibility state.
#pragma once

#include "parameters/grips/CJbCustBlockGrip.h"

class CJbCustBlockStateGripImpl;

class CJbCustBlockVisibilityGrip : public CJbCustBlockGrip {
  ODRX_DECLARE_MEMBERS(CJbCustBlockVisibilityGrip);

 public:
  CJbCustBlockVisibilityGrip();
  ~CJbCustBlockVisibilityGrip() override;

  OdString GetBaseName() const override;
  GripType GetType() const override;
  bool IsAlwaysVisible() const override;
  // Its state reaches the parameter through the parameter itself.
  bool NeedEvaluate() const override;

  // The requested state, else the one the parameter proposes; 0 without a parameter.
  unsigned GetState() const;
  // Requests a state; not part of the instance state.
  void SetState(unsigned state);
  void ResetState();

 private:
  CJbCustBlockStateGripImpl* StateImpl() const;
};

using CJbCustBlockVisibilityGripPtr = OdSmartPtr<CJbCustBlockVisibilityGrip>;
