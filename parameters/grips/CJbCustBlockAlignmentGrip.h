// The grip of an alignment parameter: fixed in place, it requests the aligned state.
#pragma once

#include "parameters/grips/CJbCustBlockGrip.h"

class CJbCustBlockStateGripImpl;

class CJbCustBlockAlignmentGrip : public CJbCustBlockGrip {
  ODRX_DECLARE_MEMBERS(CJbCustBlockAlignmentGrip);

 public:
  CJbCustBlockAlignmentGrip();
  ~CJbCustBlockAlignmentGrip() override;

  OdString GetBaseName() const override;
  GripType GetType() const override;
  bool IsFixed() const override;
  // Grips standing on an alignment grip collapse into it among the cycling points.
  bool GathersCyclingPoints() const override;
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

using CJbCustBlockAlignmentGripPtr = OdSmartPtr<CJbCustBlockAlignmentGrip>;
