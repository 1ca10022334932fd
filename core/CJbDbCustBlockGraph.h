// The evaluation graph of one customizable block definition: a database object holding the
// block's elements by id, deciding which of them are evaluated and in what order, keeping the
// grip cycling order and announcing element changes to graph reactors when it is closed.
#pragma once

#include <memory>

#include "core/CJbCustBlockElement.h"
#include "platform/db/OdDbObject.h"

class CJbDbCustBlockAttributeSnapshot;
class CJbDbCustBlockGraphImpl;

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

  void subClose() override;

 protected:
  void AssertNodeReadEnabled(const CJbCustBlockElement* element) const;
  void AssertNodeWriteEnabled(const CJbCustBlockElement* element);

  // The stored cycling order, as the settings element files it.
  const OdArray<int>& StoredCyclingOrder() const;
  void SetStoredCyclingOrder(const OdArray<int>& order);

 private:
  friend class CJbCustBlockElement;
  friend class CJbCustBlockSettingsElement;

  CJbCustBlockElement* NodeAt(int id) const;
  bool HasNodeNamed(const OdString& name, const CJbCustBlockElement* except) const;
  void RunPasses(const OdArray<int>& ids, CJbDbCustBlockGraphEvaluationContext* context,
                 bool evaluateParameters);
  void UpdateCyclingOrder(int id);

  std::unique_ptr<CJbDbCustBlockGraphImpl> m_pImpl;
};

using CJbDbCustBlockGraphPtr = OdSmartPtr<CJbDbCustBlockGraph>;
