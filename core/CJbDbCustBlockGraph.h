// The evaluation graph of one customizable block definition: a database object holding the
// block's elements by id, keeping the grip cycling order, announcing element changes to graph
// reactors when it is closed, auditing itself, and saving and loading the state of one block
// reference. How it evaluates (CJbDbCustBlockGraphEvaluation), how it is filed
// (CJbDbCustBlockGraphFiling) and how attributes follow their definitions
// (CJbDbCustBlockAttributeFollower) live in classes of their own.
#pragma once

#include <memory>

#include "core/CJbCustBlockElement.h"
#include "platform/db/OdDbObject.h"

class CJbDbCustBlockAttributeSnapshot;
class CJbDbCustBlockGraphImpl;
class CJbDbCustBlockGraphInstanceContext;

class CJbDbCustBlockGraph : public OdDbObject {
  ODRX_DECLARE_MEMBERS(CJbDbCustBlockGraph);

 public:
  CJbDbCustBlockGraph();
  ~CJbDbCustBlockGraph() override;

  // Takes the element over (from its former graph, if any), names it uniquely and gives it a
  // fresh id. False for an empty pointer.
  bool AppendNode(const CJbCustBlockElementPtr& element);
  bool RemoveNode(int id);
  CJbCustBlockElementPtr GetNode(int id) const;
  bool HasNode(int id) const;
  OdArray<int> GetAllNodeIds() const;
  // False when a unique node already stands for `cls` (or one of its parents).
  bool CanNodeBeAdded(OdRxClass* cls) const;
  // True when the graph holds no parameter and no proxy element.
  bool IsEmpty() const;

  // Evaluates the elements that need it and everything downstream, for one block reference.
  void Evaluate(const OdDbObjectId& blockRefId, bool modifyBlockReferences);
  // After a redefinition: the changed elements and their dependents first (parameters only
  // prepare and finish), then every element.
  void EvaluateFromBlockDefinition(const OdDbObjectId& blockDefId, bool ignoreBlockEntities);
  void Reset(const OdDbObjectId& blockId, bool ignoreBlockEntities);
  void Cleanup();

  OdArray<int> GetCyclingOrder(bool onlyEnabled) const;
  void MoveCyclingOrder(unsigned from, unsigned to);
  // The insertion points a user cycles through; grips standing on an alignment grip collapse
  // into it.
  OdArray<OdGePoint3d> GetCyclingPoints(OdArray<int>* ids) const;

  // Attribute positions of the block before an evaluation, so that attributes of the reference
  // can follow their definitions afterwards. The caller owns the snapshot.
  static void BeginUpdateAttributes(const OdDbObjectId& blockRefId,
                                    CJbDbCustBlockAttributeSnapshot*& snapshot);
  static void UpdateAttributes(const OdDbObjectId& blockRefId,
                               CJbDbCustBlockAttributeSnapshot* snapshot);

  OdDbObjectId GetBlockDefinitionId() const;
  void SetBlockDefinitionId(const OdDbObjectId& blockDefId);
  int GetMajorVersion() const;
  int GetMinorVersion() const;
  // Read at a format version older than the one this build writes.
  bool IsOlderVersion() const;
  // Brings a graph read at an older version to the current one, as an edit must before it saves
  // state; a current or newer graph is left as it is.
  void UpgradeToCurrentVersion();
  // Text that identifies the graph; the first item of every instance chain.
  OdString GetIdentifier() const;

  // The record of the graph: its version, last id, block, and every node in proxy form. A node
  // whose class is not registered stays a proxy and is written back unchanged; a graph of another
  // version is written back at that version until it is upgraded. On a read error the graph is
  // left empty.
  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

  // The state of one block reference: the identifier, one block of items per element that saves
  // any, then "VERSION" and the format version.
  OdResBufPtr SaveInstance(CJbDbCustBlockGraphInstanceContext* context) const;
  // Loads a chain saved by SaveInstance, matched to the nodes by element id. False when the chain
  // is malformed or an element did not take its items; what was loaded stays loaded.
  bool LoadInstance(OdResBufPtr chain, CJbDbCustBlockGraphInstanceContext* context);

  // Checks the nodes, their connections and the cycling order, and the block the graph belongs
  // to; with fixing on, removes what cannot be kept and erases a graph whose block is gone.
  void audit(OdDbAuditInfo* auditInfo) override;

  // Copies the whole graph, every node as a new element of its own class with the same id, name
  // and data. Names are unique in the source already, so they are taken as they are.
  void copyFrom(const OdRxObject* source) override;

  void subClose() override;

 protected:
  // Brings a graph read at an older version to the current one: an order filed in the graph moves
  // to the settings element, and the nodes stop being written as they were read.
  virtual void UpdateToCurrentVersion();
  // The node list of the record.
  virtual OdResult NodeDwgInFields(OdDbDwgFiler* filer);
  virtual void NodeDwgOutFields(OdDbDwgFiler* filer) const;
  virtual OdResult NodeDxfInFields(OdDbDxfFiler* filer);
  virtual void NodeDxfOutFields(OdDbDxfFiler* filer) const;

  void AssertNodeReadEnabled(const CJbCustBlockElement* element) const;
  void AssertNodeWriteEnabled(const CJbCustBlockElement* element);

  // The stored cycling order, as the settings element files it.
  const OdArray<int>& StoredCyclingOrder() const;
  void SetStoredCyclingOrder(const OdArray<int>& order);

 private:
  friend class CJbCustBlockElement;
  friend class CJbCustBlockSettingsElement;
  friend class CJbDbCustBlockGraphFiling;

  CJbCustBlockElement* NodeAt(int id) const;
  bool HasSettingsElement() const;
  void AuditNodes(OdDbAuditInfo* auditInfo);
  void AuditCyclingOrder(OdDbAuditInfo* auditInfo);
  bool HasNodeNamed(const OdString& name, const CJbCustBlockElement* except) const;
  void UpdateCyclingOrder(int id);

  std::unique_ptr<CJbDbCustBlockGraphImpl> m_pImpl;
};

using CJbDbCustBlockGraphPtr = OdSmartPtr<CJbDbCustBlockGraph>;
