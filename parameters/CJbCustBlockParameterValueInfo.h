// The value set of one parameter value: its kind, its property name and, for numeric kinds, the
// constraint the author put on it (none, a step with optional bounds, or a list of allowed
// values), through which proposed values are snapped.
#pragma once

#include <memory>

#include "platform/base/OdArray.h"
#include "platform/base/OdResult.h"
#include "platform/base/OdString.h"
#include "platform/db/OdDbObjectId.h"
#include "platform/ge/OdGePoint3d.h"

class CJbCustBlockParameter;
class CJbCustBlockParameterValueInfoImpl;
class CJbDbCustBlockGraph;
class OdDbDwgFiler;
class OdDbDxfFiler;

class CJbCustBlockParameterValueInfo {
 public:
  enum ValueType {
    kPosition = 0,
    kXPosition = 1,
    kYPosition = 2,
    kDistance = 3,
    kXDistance = 4,
    kYDistance = 5,
    kAngle = 6,
    kMirrorState = 7,
    kVisibility = 8,
    kTable = 9,
  };
  enum LimitType { kNone = 0, kIncrement = 1, kList = 2 };

  // A child appends itself to its parent's children.
  explicit CJbCustBlockParameterValueInfo(ValueType type,
                                          CJbCustBlockParameterValueInfo* parent = nullptr);
  virtual ~CJbCustBlockParameterValueInfo();
  CJbCustBlockParameterValueInfo(const CJbCustBlockParameterValueInfo&) = delete;
  CJbCustBlockParameterValueInfo& operator=(const CJbCustBlockParameterValueInfo&) = delete;

  ValueType GetValueType() const;
  LimitType GetLimitType() const;
  // Children are named after their parent: "<parent> X" and "<parent> Y".
  OdString GetName() const;
  bool SetName(const OdString& name, CJbCustBlockParameter* parameter);
  OdString GetBaseName() const;
  OdString GetValueTypeName() const;
  const OdString& GetDescription() const;
  void SetDescription(const OdString& description);
  const OdGePoint3d& GetPosition() const;
  void SetPosition(const OdGePoint3d& position);

  // Only the distance and angle kinds are constrained.
  bool UseValueSet() const;
  bool GetMimimum(double& minimum) const;
  bool GetMaximum(double& maximum) const;
  bool GetIncrement(double& increment) const;
  bool GetList(OdArray<double>& values) const;

  // The setters keep the definition value of `parameter` allowed. Non-finite input is ignored.
  void SetNone(CJbCustBlockParameter* parameter);
  void SetIncrement(double step, CJbCustBlockParameter* parameter);
  void SetMinimum(double value, CJbCustBlockParameter* parameter);
  // Null removes the maximum.
  void SetMaximum(const double* value, CJbCustBlockParameter* parameter);
  void SetList(const OdArray<double>& values, CJbCustBlockParameter* parameter);

  // The allowed value nearest to `value`; the step grid is anchored at the definition value of
  // `parameter`. Non-finite values come back unchanged. A step count beyond 32 bits raises
  // eInvalidInput.
  double GetClosestValue(double value, CJbCustBlockParameter* parameter) const;

  bool IsParent() const;
  bool IsChild() const;
  bool IsStandAlone() const;
  const CJbCustBlockParameterValueInfo* GetParent() const;
  CJbCustBlockParameterValueInfo* GetParentForModify();
  const OdArray<CJbCustBlockParameterValueInfo*>& GetChildren() const;
  OdArray<CJbCustBlockParameterValueInfo*>& GetChildrenForModify();

  // A property name is valid when it is not empty and no other value set of the graph's
  // parameters carries it.
  static bool ValidateName(const OdString& name, const CJbDbCustBlockGraph* graph,
                           const CJbCustBlockParameterValueInfo* self);
  static bool ValidateName(const OdString& name, const OdDbObjectId& graphId,
                           const CJbCustBlockParameterValueInfo* self);
  // The base name followed by the first counter from 1 that gives a valid name.
  OdString GenerateName(const CJbDbCustBlockGraph* graph) const;
  OdString GenerateName(const OdDbObjectId& graphId) const;

  virtual OdResult dwgInFields(OdDbDwgFiler* filer);
  virtual void dwgOutFields(OdDbDwgFiler* filer) const;
  // Value sets have no DXF fields of their own.
  virtual OdResult dxfInFields(OdDbDxfFiler* filer);
  virtual void dxfOutFields(OdDbDxfFiler* filer) const;

 private:
  bool IsAngle() const;
  // The definition value of the owning parameter for this value set, when it has one.
  bool DefinitionValue(CJbCustBlockParameter* parameter, double& value) const;
  void RemoveFromList(double value);

  std::unique_ptr<CJbCustBlockParameterValueInfoImpl> m_pImpl;
};
