// The grip of a flip parameter: it shows whether the block is mirrored and toggles it.
#pragma once

#include "parameters/grips/CJbCustBlockGrip.h"

class CJbCustBlockFlipGripImpl;

class CJbCustBlockFlipGrip : public CJbCustBlockGrip {
  ODRX_DECLARE_MEMBERS(CJbCustBlockFlipGrip);

 public:
  CJbCustBlockFlipGrip();
  ~CJbCustBlockFlipGrip() override;

  OdString GetBaseName() const override;
  GripType GetType() const override;
  // A grip showing the flipped state keeps asking for evaluation.
  bool NeedEvaluate() const override;

  bool IsFlipped() const;
  // Instance state of the evaluation in progress; not saved with the instance.
  void SetFlipped(bool flipped);

 private:
  CJbCustBlockFlipGripImpl* FlipImpl() const;
};

using CJbCustBlockFlipGripPtr = OdSmartPtr<CJbCustBlockFlipGrip>;
