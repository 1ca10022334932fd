// A parameter whose values are the distance (0) from its start point to its end point and the
// angle (1) of that line, measured from a reference direction about a normal. The reference and
// normal turn with the parameter, so that turning or mirroring the block keeps the angle.
#pragma once

#include "parameters/CJbCustBlock2PointParameter.h"

class CJbCustBlockPolarParameterImpl;

class CJbCustBlockPolarParameter : public CJbCustBlock2PointParameter {
  ODRX_DECLARE_MEMBERS(CJbCustBlockPolarParameter);

 public:
  enum Value { kDistanceValue = 0, kAngleValue = 1 };

  CJbCustBlockPolarParameter();
  ~CJbCustBlockPolarParameter() override;

  OdString GetBaseName() const override;
  // Grip drags move their point freely; the distance and then the angle are snapped, and the
  // point that did not move stays.
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool Reset(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool Transform(const OdGeMatrix3d& matrix, bool keepUpdated) override;
  // After the base items: the current reference direction and normal, read back as updated.
  bool LoadInstance(OdResBufPtr& cursor, CJbDbCustBlockGraphInstanceContext* context) override;
  OdResBufPtr SaveInstance(CJbDbCustBlockGraphInstanceContext* context) override;
  OdResBufPtr GetValue(unsigned index) const override;
  // The distance takes a real, the angle a real or an angle (radians); non-finite numbers are
  // refused.
  bool SetValue(unsigned index, const OdResBufPtr& value) override;
  // Measured against the defined reference direction and normal.
  OdResBufPtr GetDefinitionValue(unsigned index) override;
  bool SetDefinitionValue(unsigned index, const OdResBufPtr& value) override;

  OdGeVector3d GetDefinedReferenceVector() const;
  OdGeVector3d GetDefinedNormal() const;
  OdGeVector3d GetCurrentReferenceVector() const;
  void SetCurrentReferenceVector(const OdGeVector3d& reference);
  OdGeVector3d GetCurrentNormal() const;
  void SetCurrentNormal(const OdGeVector3d& normal);
  OdGeVector3d GetUpdatedReferenceVector() const;
  OdGeVector3d GetUpdatedNormal() const;

 private:
  CJbCustBlockPolarParameterImpl* PolarImpl() const;
  // The updated end placed at `distance` and `angle` from the updated start.
  void PlaceEnd(double distance, double angle);
  // Runs `step` with the updated reference and normal set to the defined ones.
  template <class Step>
  auto WithDefinedReference(Step step);
};

using CJbCustBlockPolarParameterPtr = OdSmartPtr<CJbCustBlockPolarParameter>;
