// Base of every parameter, action and grip of a customizable block: identity inside its graph,
// name, visibility, connections to other elements, and the hooks the graph calls to evaluate,
// file and save the element's instance state.
#pragma once

#include <memory>

#include "platform/base/OdArray.h"
#include "platform/base/OdResult.h"
#include "platform/base/OdString.h"
#include "platform/db/OdDbObjectId.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeVector3d.h"
#include "platform/resbuf/OdResBuf.h"
#include "platform/rx/OdRxObject.h"

class CJbCustBlockElementImpl;
class CJbDbCustBlockGraph;
class CJbDbCustBlockGraphEvaluationContext;
class CJbDbCustBlockGraphInstanceContext;
class OdDbAuditInfo;
class OdDbDwgFiler;
class OdDbDxfFiler;
class OdGeMatrix3d;

class CJbCustBlockElement : public OdRxObject {
  ODRX_DECLARE_MEMBERS(CJbCustBlockElement);

 public:
  // Evaluation order among elements that do not depend on each other: higher goes first.
  enum Priority { kPriorityNormal = 2, kPriorityHigh = 3, kPriorityHighest = 4 };

  CJbCustBlockElement();
  ~CJbCustBlockElement() override;

  virtual OdString GetBaseName() const;
  virtual bool BeginEvaluate(CJbDbCustBlockGraphEvaluationContext* context);
  virtual bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context);
  virtual bool EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context);
  virtual bool Reset(CJbDbCustBlockGraphEvaluationContext* context);
  virtual bool Transform(const OdGeMatrix3d& matrix, bool keepUpdated);
  virtual bool StretchPoints(const OdArray<int>& indices, const OdGeVector3d& offset,
                             bool keepUpdated);
  virtual OdArray<OdGePoint3d> GetStretchPoints() const;
  virtual void ComposeInstanceForLoad();
  virtual void DecomposeInstanceForSave();
  // Reads this element's items from the shared cursor and advances it past them.
  virtual bool LoadInstance(OdResBufPtr& cursor, CJbDbCustBlockGraphInstanceContext* context);
  virtual OdResBufPtr SaveInstance(CJbDbCustBlockGraphInstanceContext* context);
  virtual bool IsConnectionSuppressed(int id) const;
  virtual bool NeedEvaluate() const;
  virtual bool IsValid() const;
  virtual bool IsUnique() const;
  virtual bool IsVisible() const;
  virtual bool IsAlwaysVisible() const;
  virtual const OdString& GetName() const;
  virtual void SetName(const OdString& name);
  virtual void ValidateAndUpdateName(const CJbDbCustBlockGraph* graph);
  virtual bool IsProxy() const;
  virtual Priority GetPriority() const;
  virtual OdResult dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph);
  virtual void dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const;
  virtual OdResult dxfInFields(OdDbDxfFiler* filer, CJbDbCustBlockGraph* graph);
  virtual void dxfOutFields(OdDbDxfFiler* filer, const CJbDbCustBlockGraph* graph) const;
  virtual void Audit(OdDbAuditInfo* auditInfo);
  virtual void Cleanup();
  // Called by the graph just before the element leaves it.
  virtual void OnRemoved();

  int GetElementId() const;
  void SetElementId(int id);
  static bool IsNullId(int id) { return id == 0; }

  // The owning graph opened in `mode`, or empty when the element has none.
  OdSmartPtr<CJbDbCustBlockGraph> GetBlockGraph(OdDb::OpenMode mode) const;
  // The owning graph's id; null without a graph or when the graph is not in a database.
  OdDbObjectId GetBlockGraphId() const;
  void SetGraph(CJbDbCustBlockGraph* graph);
  // The owning graph as its holder has it open, for checks made while it is open for write;
  // null without a graph.
  CJbDbCustBlockGraph* GetGraph() const;

  void AddConnection(int id, bool in, bool out);
  void RemoveConnection(int id, bool in, bool out);
  bool HasConnection(int id, bool in, bool out) const;
  void GetConnections(OdArray<int>& ids, bool in, bool out) const;

  void SetVisible(bool visible);

  OdSmartPtr<CJbCustBlockElement> GetProxyElement() const;
  void SetProxyElement(const OdSmartPtr<CJbCustBlockElement>& proxy);

  OdString GenerateName(const CJbDbCustBlockGraph* graph) const;
  OdString GenerateName(const OdDbObjectId& graphId) const;
  static bool ValidateName(const OdString& name, const CJbDbCustBlockGraph* graph,
                           CJbCustBlockElement* self);
  static bool ValidateName(const OdString& name, const OdDbObjectId& graphId,
                           CJbCustBlockElement* self);
  void ValidateAndUpdateName(const OdDbObjectId& graphId);

  // Reading needs the graph open for read, changing it open for write (which logs the change).
  void AssertReadEnabled() const;
  void AssertWriteEnabled() const;

  // Partner `id` has left the graph.
  void OnElementRemoved(int id);

 protected:
  // Subclasses hand in their own implementation object; the element owns it.
  explicit CJbCustBlockElement(CJbCustBlockElementImpl* impl);
  CJbCustBlockElementImpl* Impl() const { return m_pImpl.get(); }

 private:
  friend class CJbDbCustBlockGraph;
  friend class CJbDbCustBlockGraphImpl;
  friend class CJbDbCustBlockGraphEvaluation;
  friend class CJbDbCustBlockGraphFiling;
  friend class CJbCustBlockProxyElement;

  std::unique_ptr<CJbCustBlockElementImpl> m_pImpl;
};

using CJbCustBlockElementPtr = OdSmartPtr<CJbCustBlockElement>;
