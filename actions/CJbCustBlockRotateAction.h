// An action that turns its selection by the angle through which its rotation parameter turned,
// about a base point: the parameter's base point plus the base offset (dependent base), or the
// offset alone, carried along by other actions (independent base).
#pragma once

#include "actions/CJbCustBlockAction.h"

class CJbCustBlockRotateAction : public CJbCustBlockAction {
  ODRX_DECLARE_MEMBERS(CJbCustBlockRotateAction);

 public:
  CJbCustBlockRotateAction();
  ~CJbCustBlockRotateAction() override;

  OdString GetBaseName() const override;
  // False without a rotation parameter; a radius of no length or along the normal turns nothing.
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  // Rotation parameters only.
  OdArray<OdRxClass*> GetAcceptableParameters() const override;
};

using CJbCustBlockRotateActionPtr = OdSmartPtr<CJbCustBlockRotateAction>;
