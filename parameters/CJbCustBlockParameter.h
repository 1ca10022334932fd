// Base of every parameter of a customizable block: a fixed set of characteristic points, each
// with its defined, current and updated position and an optional grip, the value sets of the
// kind's values, and the evaluation, transformation, instance-state and filing rules they share.
#pragma once

#include "core/CJbCustBlockElement.h"
#include "core/CJbCustBlockGraphParameter.h"

class CJbCustBlockParameterImpl;
class CJbCustBlockParameterValueInfo;

class CJbCustBlockParameter : public CJbCustBlockElement, public CJbCustBlockGraphParameter {
  ODRX_DECLARE_MEMBERS(CJbCustBlockParameter);

 public:
  ~CJbCustBlockParameter() override;

  // Value equality of parameters: reals and angles within 1e-10, points within the global
  // tolerance, integers exactly. Strings report equality when they differ (ignoring case); kinds
  // with string values compare them themselves.
  static bool IsEqualValue(const OdResBuf* a, const OdResBuf* b);

  OdString GetBaseName() const override;
  bool EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool Reset(CJbDbCustBlockGraphEvaluationContext* context) override;
  // Moves updated positions unless `keepUpdated`, current positions unless chained.
  bool Transform(const OdGeMatrix3d& matrix, bool keepUpdated) override;
  // Moves the listed points; a parameter that is not chained moves its current positions along,
  // so the move does not count as a change of its value.
  bool StretchPoints(const OdArray<int>& indices, const OdGeVector3d& offset,
                     bool keepUpdated) override;
  OdArray<OdGePoint3d> GetStretchPoints() const override;
  bool LoadInstance(OdResBufPtr& cursor, CJbDbCustBlockGraphInstanceContext* context) override;
  OdResBufPtr SaveInstance(CJbDbCustBlockGraphInstanceContext* context) override;
  bool NeedEvaluate() const override;
  bool IsValid() const override;
  void ValidateAndUpdateName(const CJbDbCustBlockGraph* graph) override;
  OdResult dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) override;
  void dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const override;
  // Succeeds whatever the base fields gave: the node's own data travels in its binary form.
  OdResult dxfInFields(OdDbDxfFiler* filer, CJbDbCustBlockGraph* graph) override;

  // Values by index; an index the kind does not have gives an empty value.
  virtual OdResBufPtr GetValue(unsigned index) const;
  // Moves the updated positions so that the value becomes `value`; false when it is refused.
  virtual bool SetValue(unsigned index, const OdResBufPtr& value);
  // The value the block definition itself has (from the defined positions).
  virtual OdResBufPtr GetDefinitionValue(unsigned index);
  // Changes the defined positions so that the definition has `value`.
  virtual bool SetDefinitionValue(unsigned index, const OdResBufPtr& value);
  virtual unsigned GetMaxPointCount() const;
  virtual int GetGrip(unsigned index) const;
  virtual void SetGrip(unsigned index, int gripId);
  // Whether the grip of point `index` is shown: some action follows that point (or no point in
  // particular).
  virtual bool IsGripVisible(unsigned index, bool checkVisibility) const;
  virtual OdGePoint3d GetDefinedPosition(unsigned index) const;
  virtual void SetDefinedPosition(unsigned index, const OdGePoint3d& point);
  virtual OdGePoint3d GetCurrentPosition(unsigned index) const;
  virtual void SetCurrentPosition(unsigned index, const OdGePoint3d& point);
  virtual OdGePoint3d GetUpdatedPosition(unsigned index) const;
  virtual void SetUpdatedPosition(unsigned index, const OdGePoint3d& point);
  virtual bool IsChain() const;
  virtual void SetChain(bool chain);
  virtual bool IsPropertyVisible() const;
  virtual void SetPropertyVisible(bool visible);
  virtual bool IsPropertyEnabled() const;
  // Connected elements that are actions (that bind to the parameter's points), in connection
  // order.
  virtual OdArray<int> GetConnectedActions() const;

  unsigned GetPointCount() const;
  const CJbCustBlockParameterValueInfo* GetValueInfo(unsigned index) const;
  unsigned GetValueInfoCount() const;
  // Opens the parameter for write; null for an index out of range.
  CJbCustBlockParameterValueInfo* GetValueInfoForModify(unsigned index);
  // Valid, and every grip it has is shown.
  bool IsValidParameter() const;
  OdGePoint3d GetActivityIconPosition() const;
  void SetActivityIconPosition(const OdGePoint3d& position);

 protected:
  explicit CJbCustBlockParameter(CJbCustBlockParameterImpl* impl);
  CJbCustBlockParameterImpl* ParameterImpl() const;
  // The grip element of point `index` in the graph, or null.
  CJbCustBlockElementPtr GripNode(unsigned index) const;
};

using CJbCustBlockParameterPtr = OdSmartPtr<CJbCustBlockParameter>;
