// A parameter whose value (0) is an angle in radians: how far its rotated point has turned from
// the reference point about the base point. A drag of the rotated point's grip turns it, keeping
// its radius, and the angle is snapped to the angle value set.
#pragma once

#include "parameters/CJbCustBlockParameter.h"

class CJbCustBlockRotationParameterImpl;

class CJbCustBlockRotationParameter : public CJbCustBlockParameter {
  ODRX_DECLARE_MEMBERS(CJbCustBlockRotationParameter);

 public:
  CJbCustBlockRotationParameter();
  ~CJbCustBlockRotationParameter() override;

  OdString GetBaseName() const override;
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool Reset(CJbDbCustBlockGraphEvaluationContext* context) override;
  // The normal turns with the points; a mirror flips it so that the angle keeps its value.
  bool Transform(const OdGeMatrix3d& matrix, bool keepUpdated) override;
  // After the base items: the current normal, read back as updated.
  bool LoadInstance(OdResBufPtr& cursor, CJbDbCustBlockGraphInstanceContext* context) override;
  OdResBufPtr SaveInstance(CJbDbCustBlockGraphInstanceContext* context) override;
  OdResBufPtr GetValue(unsigned index) const override;
  // A real or an angle in radians; non-finite numbers are refused.
  bool SetValue(unsigned index, const OdResBufPtr& value) override;

  OdGeVector3d GetCurrentNormal() const;
  OdGeVector3d GetUpdatedNormal() const;

 private:
  CJbCustBlockRotationParameterImpl* RotationImpl() const;
};

using CJbCustBlockRotationParameterPtr = OdSmartPtr<CJbCustBlockRotationParameter>;
