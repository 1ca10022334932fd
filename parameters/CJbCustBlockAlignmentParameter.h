// A parameter that turns a block reference to line up with the geometry its base point stands
// on: lines, arcs and circles of the space that holds the reference. The block's alignment
// direction (base point to point 1) is turned along the geometry's tangent, or perpendicular to
// it, by the smaller of the two possible turns. It needs no action; its grip requests the turn.
#pragma once

#include "parameters/CJbCustBlockParameter.h"
#include "parameters/CJbCustBlockStateParameter.h"

class CJbCustBlockAlignmentParameterImpl;

class CJbCustBlockAlignmentParameter : public CJbCustBlockParameter,
                                       public CJbCustBlockStateParameter {
  ODRX_DECLARE_MEMBERS(CJbCustBlockAlignmentParameter);

 public:
  // How far (drawing units) the base point may lie off geometry that still counts as under it.
  static constexpr double kSearchTolerance = 1e-6;

  CJbCustBlockAlignmentParameter();
  ~CJbCustBlockAlignmentParameter() override;

  OdString GetBaseName() const override;
  // With the grip's request and references to modify: turns the reference being evaluated.
  bool EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool IsValid() const override;
  bool IsUnique() const override;
  // After the base fields: the perpendicular flag.
  OdResult dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) override;
  void dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const override;
  // 1 when the last requested alignment found geometry, else 0.
  int GetUpdatedState() const override;

  bool IsPerpendicular() const;
  void SetPerpendicular(bool perpendicular);

  // The direction the geometry of `space` has at `point` (world coordinates), when a line, arc
  // or circle of it passes there.
  static bool FindTangent(const OdDbObjectId& space, const OdGePoint3d& point,
                          OdGeVector3d& tangent);

 private:
  CJbCustBlockAlignmentParameterImpl* AlignmentImpl() const;
  // Turns the reference about its base point; false when nothing lies under it.
  bool Align(const OdDbObjectId& referenceId) const;
};

using CJbCustBlockAlignmentParameterPtr = OdSmartPtr<CJbCustBlockAlignmentParameter>;
