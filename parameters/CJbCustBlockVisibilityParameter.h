// A parameter that gives a block named visibility states. Each state hides some entities of the
// block and some of its elements; a block reference picks a state through the parameter's value
// (the state's index), and evaluation shows what the previous state hid and hides what the new
// one hides, in the block the reference uses. State names are unique (ignoring case) and never
// empty. State 0 is the default state.
#pragma once

#include "parameters/CJbCustBlockParameter.h"
#include "parameters/CJbCustBlockStateParameter.h"

class CJbCustBlockVisibilityParameterImpl;

class CJbCustBlockVisibilityParameter : public CJbCustBlockParameter,
                                        public CJbCustBlockStateParameter {
  ODRX_DECLARE_MEMBERS(CJbCustBlockVisibilityParameter);

 public:
  CJbCustBlockVisibilityParameter();
  ~CJbCustBlockVisibilityParameter() override;

  OdString GetBaseName() const override;
  // Switches the block from the current state to the updated one.
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  // Back to the default state.
  bool Reset(CJbDbCustBlockGraphEvaluationContext* context) override;
  // The updated state, each state's current hidden entities when ids are required, and the
  // updated state's name, which wins over the index on loading so that reordered states keep an
  // instance in its state. The grip's anchor point is no instance state.
  bool LoadInstance(OdResBufPtr& cursor, CJbDbCustBlockGraphInstanceContext* context) override;
  OdResBufPtr SaveInstance(CJbDbCustBlockGraphInstanceContext* context) override;
  bool NeedEvaluate() const override;
  // It needs no action.
  bool IsValid() const override;
  bool IsUnique() const override;
  bool IsAlwaysVisible() const override;
  bool IsPropertyEnabled() const override;
  bool IsGripVisible(unsigned index, bool checkVisibility) const override;
  // Reports (and, when fixing, drops) erased entities and missing elements in the states, and a
  // block editor state beyond them.
  void Audit(OdDbAuditInfo* auditInfo) override;
  // Drops erased entities and elements no longer in the graph from every state.
  void Cleanup() override;
  // Shows again everything the states hid.
  void OnRemoved() override;
  // After the base fields: the block editor state, then per state its name, hidden entities and
  // hidden elements.
  OdResult dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) override;
  void dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const override;
  // Index 0: the updated state (32-bit integer).
  OdResBufPtr GetValue(unsigned index) const override;
  // Index 0 takes a 32-bit integer naming an existing state; anything else is refused.
  bool SetValue(unsigned index, const OdResBufPtr& value) override;
  int GetUpdatedState() const override;

  unsigned GetBlockEditorState() const;
  void SetBlockEditorState(unsigned state);
  unsigned GetCurrentState() const;
  void SetCurrentState(unsigned state);
  void SetUpdatedState(unsigned state);
  unsigned GetDefaultState() const { return 0; }

  // Accessors taking a state index raise eInvalidIndex for an index beyond the states.
  unsigned GetStateCount() const;
  OdString GetStateName(unsigned state) const;
  // eInvalidInput for an empty name, eDuplicateRecordName for one another state has.
  void SetStateName(unsigned state, const OdString& name);
  // The index of the state named exactly `name`, or -1.
  int GetStateIndex(const OdString& name) const;
  bool HasState(const OdString& name) const;
  OdArray<OdDbObjectId> GetDefinedHiddenEntities(unsigned state) const;
  // Sets the entities the definition hides in `state`; the evaluated block starts as the
  // definition itself.
  void SetDefinedHiddenEntities(unsigned state, const OdArray<OdDbObjectId>& ids);
  OdArray<OdDbObjectId> GetCurrentHiddenEntities(unsigned state) const;
  OdArray<int> GetHiddenElementIds(unsigned state) const;
  // Changing the default state's list brings its elements' visible flags in line with it.
  void SetHiddenElementIds(unsigned state, const OdArray<int>& ids);

  // Appends a state and returns its index; the name follows SetStateName's rules.
  unsigned AddState(const OdString& name, const OdArray<OdDbObjectId>& hiddenEntities,
                    const OdArray<int>& hiddenElementIds);
  // The state indices held (block editor, current, updated) follow the states they named; one
  // that named the removed state falls back to the default state.
  void RemoveState(unsigned state);
  void ChangeStatePosition(unsigned from, unsigned to);
  // The base name followed by the first number no state name has.
  OdString GenerateStateName() const;
  static OdString GetBaseStateName();

  // Shows every entity any state hides, then hides those of `state` (attributes of hidden
  // references too); nothing for an index beyond the states.
  void ForceHideEntities(unsigned state);
  void ForceHideEntitiesForDefaultState();
  void ForceHideEntitiesForBlockEditorState();
  void ForceShowAllEntities();

 private:
  CJbCustBlockVisibilityParameterImpl* VisibilityImpl() const;
  // Sets the visible flag of the graph's elements named in `ids`.
  void SetElementsVisible(const OdArray<int>& ids, bool visible) const;
  // Throws unless `name` may name state `except` (-1 for a new state).
  void CheckStateName(const OdString& name, int except) const;
};

using CJbCustBlockVisibilityParameterPtr = OdSmartPtr<CJbCustBlockVisibilityParameter>;
