// The grip of a lookup parameter: it requests a row of the parameter's table.
#pragma once

#include "parameters/grips/CJbCustBlockGrip.h"

class CJbCustBlockStateGripImpl;

class CJbCustBlockLookupGrip : public CJbCustBlockGrip {
  ODRX_DECLARE_MEMBERS(CJbCustBlockLookupGrip);

 public:
  CJbCustBlockLookupGrip();
  ~CJbCustBlockLookupGrip() override;

  OdString GetBaseName() const override;
  GripType GetType() const override;
  // A requested state asks for evaluation.
  bool NeedEvaluate() const override;

  // The requested state, else the one the parameter proposes; 0 without a parameter.
  int GetState() const;
  // Requests a state; not part of the instance state.
  void SetState(int state);
  void ResetState();

 private:
  CJbCustBlockStateGripImpl* StateImpl() const;
};

using CJbCustBlockLookupGripPtr = OdSmartPtr<CJbCustBlockLookupGrip>;
