// Base of every action of a customizable block: the parameter (and point) that drives it, an
// optional modifier of the parameter's displacement, and the selection sets of block entities and
// dependent elements to which a concrete action's transformation is applied.
#pragma once

#include "core/CJbCustBlockElement.h"
#include "parameters/CJbCustBlockParameterPointBinding.h"

class CJbCustBlockActionImpl;
class CJbCustBlockParameter;
class OdRxClass;

class CJbCustBlockAction : public CJbCustBlockElement, public CJbCustBlockParameterPointBinding {
  ODRX_DECLARE_MEMBERS(CJbCustBlockAction);

 public:
  // What displacement the angle-offset modifier starts from.
  enum DistanceType { kWholeVector = 0, kXComponent = 1, kYComponent = 2 };
  enum ValidationErrorReason { kNoError = 0, kUnacceptableParameter = 1, kParameterTaken = 2 };

  ~CJbCustBlockAction() override;

  bool Reset(CJbDbCustBlockGraphEvaluationContext* context) override;
  // Keeps the modifier in step when another action transforms this one.
  bool Transform(const OdGeMatrix3d& matrix, bool keepUpdated) override;
  bool LoadInstance(OdResBufPtr& cursor, CJbDbCustBlockGraphInstanceContext* context) override;
  OdResBufPtr SaveInstance(CJbDbCustBlockGraphInstanceContext* context) override;
  // A parameter in the graph of a kind this action accepts.
  bool IsValid() const override;
  OdResult dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) override;
  void dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const override;
  // Drops selection entries naming erased entities or elements no longer in the graph.
  void Cleanup() override;

  virtual bool TransformAllSelections(CJbDbCustBlockGraphEvaluationContext* context,
                                      const OdGeMatrix3d& matrix);
  virtual bool TransformSelection(CJbDbCustBlockGraphEvaluationContext* context, unsigned set,
                                  const OdGeMatrix3d& matrix);
  virtual bool IsParameterPointIndexReadOnly() const;
  bool HasParameterPointIndex() const override;
  // Whether set `set` is a stretch set: entities with recorded indices are stretched, not moved.
  virtual bool IsAreaRequired(unsigned set) const;
  virtual OdArray<OdRxClass*> GetAcceptableParameters() const;
  virtual bool IsOneActionPerParameter() const;
  virtual bool ValidateParameter(const OdDbObjectId& graphId, int parameterId,
                                 ValidationErrorReason& reason) const;

  int GetParameter() const;
  void SetParameter(int id);
  unsigned GetParameterPointIndex() const override;
  void SetParameterPointIndex(unsigned index);

  // The multiplier comes before the angle. Null outputs are skipped.
  bool HasAngleOffsetAndDistanceMultiplier(double* multiplier, double* angle,
                                           DistanceType* type) const;
  bool SetAngleOffsetAndDistanceMultiplier(double multiplier, double angle, DistanceType type);
  bool HasBaseOffset(OdGeVector3d* offset, bool* independent) const;
  bool SetBaseOffset(const OdGeVector3d& offset, bool independent);
  // Projects, turns and scales a displacement taken from the parameter.
  void ApplyModifierOffset(OdGeVector3d& vector) const;

  OdArray<OdGePoint3d> GetSelectionDefinition(unsigned set) const;
  // Sets the frame of `set`: two corners make a rectangle, more points a polygon, fewer a plain
  // selection. With `recalculate` the stretch indices are computed again from the new frame.
  void SetSelectionDefinition(unsigned set, const OdArray<OdGePoint3d>& points, bool recalculate);
  // Recomputes the stretch indices of `set` from its frame moved by `offset`; every set when
  // `set` equals the set count.
  void RecalculateSelectionSetByDefinition(unsigned set, const OdGeVector3d& offset);

  OdArray<OdDbObjectId> GetEntities(unsigned set, OdArray<OdArray<int>>* indices = nullptr) const;
  // Replaces the entities of `set`; the block being evaluated starts as the definition itself.
  void SetEntities(unsigned set, const OdArray<OdDbObjectId>& ids,
                   const OdArray<OdArray<int>>& indices = OdArray<OdArray<int>>());
  OdArray<int> GetElements(unsigned set, OdArray<OdArray<int>>* indices = nullptr) const;
  void SetElements(unsigned set, const OdArray<int>& ids,
                   const OdArray<OdArray<int>>& indices = OdArray<OdArray<int>>());
  OdArray<OdDbObjectId> GetCurrentEntities(unsigned set) const;
  // The entities of the block copy that correspond, entry by entry, to the set's entities.
  void SetCurrentEntities(unsigned set, const OdArray<OdDbObjectId>& ids);
  bool IsRegularSelection(unsigned set) const;
  bool IsRectangleSelection(unsigned set) const;
  bool IsPolygonSelection(unsigned set) const;
  unsigned GetRequiredSelectionSetCount() const;

 protected:
  explicit CJbCustBlockAction(CJbCustBlockActionImpl* impl);
  CJbCustBlockActionImpl* ActionImpl() const;
  // The driving parameter in the graph, or null.
  CJbCustBlockElementPtr ParameterNode() const;
  // Moves every set by the displacement of the bound parameter point, after the modifier; false
  // without a parameter.
  bool TranslateByParameterPoint(CJbDbCustBlockGraphEvaluationContext* context);
  // The point a base-offset action scales or turns about: the parameter's base point plus the
  // working offset, or for an independent base the working offset alone.
  OdGePoint3d ModifierBasePoint(const CJbCustBlockParameter& parameter) const;
};

using CJbCustBlockActionPtr = OdSmartPtr<CJbCustBlockAction>;
