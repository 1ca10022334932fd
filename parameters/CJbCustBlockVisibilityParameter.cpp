// A parameter that gives a block named visibility states.
#include "parameters/CJbCustBlockVisibilityParameter.h"

#include <string>

#include "core/CJbDbCustBlockGraph.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "parameters/CJbCustBlockVisibilityParameterImpl.h"
#include "platform/base/OdError.h"
#include "platform/db/OdDbAuditInfo.h"
#include "platform/db/OdDbEntity.h"
#include "platform/db/OdDbObjectIterator.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockVisibilityParameter, "JbCustBlockVisibilityParameter",
                               CJbCustBlockParameter)

namespace {
using State = CJbCustBlockVisibilityParameterImpl::State;

void setEntityVisibility(OdDbEntity* entity, OdDb::Visibility visibility) {
  if (entity->visibility() == visibility) return;
  entity->upgradeOpen();
  entity->setVisibility(visibility);
}

// Writes the visibility only where it differs; a reference's attributes follow it. Erased or
// missing entities are skipped.
void setVisibility(const OdDbObjectId& id, OdDb::Visibility visibility) {
  OdDbObjectPtr object;
  if (id.openObject(object) != eOk) return;
  const OdDbEntityPtr entity = OdDbEntity::cast(object.get());
  if (entity.isNull()) return;
  setEntityVisibility(entity.get(), visibility);
  const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(entity.get());
  if (reference.isNull()) return;
  for (OdDbObjectIteratorPtr it = reference->attributeIterator(); !it->done(); it->step()) {
    const OdDbEntityPtr attribute = OdDbEntity::cast(it->objectId().openObject().get());
    if (!attribute.isNull()) setEntityVisibility(attribute.get(), visibility);
  }
}

void setVisibility(const OdArray<OdDbObjectId>& ids, OdDb::Visibility visibility) {
  for (const OdDbObjectId& id : ids)
    setVisibility(id, visibility);
}

// A count read from a file; a negative one means the record is damaged.
int readCount(OdDbDwgFiler* filer, const char* what) {
  const int count = filer->rdInt32();
  if (count < 0)
    throw OdError(eDwgObjectImproperlyRead, std::string("negative visibility ") + what + " count");
  return count;
}

bool isBlank(const OdString& name) {
  return name.str().find_first_not_of(" \t\r\n") == std::string::npos;
}

// Where a held state index goes when a state moves from `from` to `to`.
unsigned movedIndex(unsigned held, unsigned from, unsigned to) {
  if (held == from) return to;
  if (from < to && held > from && held <= to) return held - 1;
  if (to < from && held >= to && held < from) return held + 1;
  return held;
}

// The state at `index`; eInvalidIndex beyond the states.
const State& stateAt(const CJbCustBlockVisibilityParameterImpl& impl, unsigned index) {
  if (!impl.HasState(index))
    throw OdError(eInvalidIndex, "visibility state " + std::to_string(index) + " of " +
                                     std::to_string(impl.m_states.size()) + " states");
  return impl.m_states[index];
}
}  // namespace

CJbCustBlockVisibilityParameter::CJbCustBlockVisibilityParameter()
    : CJbCustBlockParameter(new CJbCustBlockVisibilityParameterImpl) {}

CJbCustBlockVisibilityParameter::~CJbCustBlockVisibilityParameter() = default;

CJbCustBlockVisibilityParameterImpl* CJbCustBlockVisibilityParameter::VisibilityImpl() const {
  return static_cast<CJbCustBlockVisibilityParameterImpl*>(ParameterImpl());
}

OdString CJbCustBlockVisibilityParameter::GetBaseName() const {
  return odTranslate("custblock_element", "Visibility");
}

void CJbCustBlockVisibilityParameter::SetElementsVisible(const OdArray<int>& ids,
                                                         bool visible) const {
  const CJbDbCustBlockGraph* graph = VisibilityImpl()->m_graph;
  if (!graph) return;
  for (int id : ids) {
    if (const CJbCustBlockElementPtr element = graph->GetNode(id)) element->SetVisible(visible);
  }
}

bool CJbCustBlockVisibilityParameter::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockParameter::Evaluate(context)) return false;
  CJbCustBlockVisibilityParameterImpl& impl = *VisibilityImpl();
  if (context && context->IsAfterBlockRedefine())
    impl.RefreshCurrentEntities(context->GetCurrentBlockId());
  if (!NeedEvaluate()) return true;
  const bool entities = !context || !context->IgnoreBlockEntities();
  if (impl.HasState(impl.m_currentState)) {
    const State& shown = impl.m_states[impl.m_currentState];
    if (entities) setVisibility(shown.currentHidden, OdDb::kVisible);
    SetElementsVisible(shown.hiddenElements, true);
  }
  if (impl.HasState(impl.m_updatedState)) {
    const State& hidden = impl.m_states[impl.m_updatedState];
    if (entities) setVisibility(hidden.currentHidden, OdDb::kInvisible);
    SetElementsVisible(hidden.hiddenElements, false);
  }
  return true;
}

bool CJbCustBlockVisibilityParameter::EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockParameter::EndEvaluate(context)) return false;
  CJbCustBlockVisibilityParameterImpl& impl = *VisibilityImpl();
  if (!context || !context->IsAfterBlockRedefine()) impl.m_currentState = impl.m_updatedState;
  return true;
}

bool CJbCustBlockVisibilityParameter::Reset(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockParameter::Reset(context)) return false;
  CJbCustBlockVisibilityParameterImpl& impl = *VisibilityImpl();
  impl.m_currentState = impl.m_updatedState = GetDefaultState();
  return true;
}

bool CJbCustBlockVisibilityParameter::LoadInstance(OdResBufPtr& cursor,
                                                   CJbDbCustBlockGraphInstanceContext* context) {
  if (!CJbCustBlockElement::LoadInstance(cursor, context)) return false;
  CJbCustBlockVisibilityParameterImpl& impl = *VisibilityImpl();
  auto readInt = [&cursor](int& value) {
    if (cursor.isNull() || cursor->restype() != OdResBuf::kRtInt32) return false;
    value = cursor->getInt32();
    cursor = cursor->next();
    return true;
  };
  int updated = 0;
  if (!readInt(updated)) return false;
  std::vector<OdArray<OdDbObjectId>> hidden;
  if (!context || context->IsObjectIdRequired()) {
    for (std::size_t state = 0; state < impl.m_states.size(); ++state) {
      int count = 0;
      if (!readInt(count) || count < 0) return false;
      OdArray<OdDbObjectId> ids;
      for (int i = 0; i < count; ++i) {
        if (cursor.isNull() || cursor->restype() != OdResBuf::kDxfSoftPointerId) return false;
        ids.append(cursor->getObjectId());
        cursor = cursor->next();
      }
      hidden.push_back(ids);
    }
  }
  if (!cursor.isNull() && cursor->restype() == OdResBuf::kRtString) {
    const int named = GetStateIndex(cursor->getString());
    if (named >= 0) updated = named;
    cursor = cursor->next();
  }
  // Taken only once the whole state has been read, so a damaged chain changes nothing.
  impl.m_updatedState = impl.HasState(static_cast<unsigned>(updated))
                            ? static_cast<unsigned>(updated)
                            : GetDefaultState();
  for (std::size_t state = 0; state < hidden.size(); ++state)
    impl.m_states[state].currentHidden = hidden[state];
  return true;
}

OdResBufPtr CJbCustBlockVisibilityParameter::SaveInstance(
    CJbDbCustBlockGraphInstanceContext* context) {
  OdResBufPtr chain = CJbCustBlockElement::SaveInstance(context);
  const CJbCustBlockVisibilityParameterImpl& impl = *VisibilityImpl();
  OdResBufPtr tail = chain->last();
  tail = tail->setNext(OdResBuf::newRb(OdResBuf::kRtInt32, static_cast<int>(impl.m_updatedState)));
  if (!context || context->IsObjectIdRequired()) {
    for (const State& state : impl.m_states) {
      tail = tail->setNext(
          OdResBuf::newRb(OdResBuf::kRtInt32, static_cast<int>(state.currentHidden.length())));
      for (const OdDbObjectId& id : state.currentHidden)
        tail = tail->setNext(OdResBuf::newRb(OdResBuf::kDxfSoftPointerId, id));
    }
  }
  const OdString name =
      impl.HasState(impl.m_updatedState) ? impl.m_states[impl.m_updatedState].name : OdString();
  tail->setNext(OdResBuf::newRb(OdResBuf::kRtString, name));
  return chain;
}

bool CJbCustBlockVisibilityParameter::NeedEvaluate() const {
  AssertReadEnabled();
  return VisibilityImpl()->m_currentState != VisibilityImpl()->m_updatedState;
}

bool CJbCustBlockVisibilityParameter::IsValid() const {
  return true;
}

bool CJbCustBlockVisibilityParameter::IsUnique() const {
  return true;
}

bool CJbCustBlockVisibilityParameter::IsAlwaysVisible() const {
  return true;
}

bool CJbCustBlockVisibilityParameter::IsPropertyEnabled() const {
  return true;
}

bool CJbCustBlockVisibilityParameter::IsGripVisible(unsigned index, bool) const {
  return !IsNullId(GetGrip(index));
}

void CJbCustBlockVisibilityParameter::Audit(OdDbAuditInfo* auditInfo) {
  CJbCustBlockParameter::Audit(auditInfo);
  const CJbCustBlockVisibilityParameterImpl& impl = *VisibilityImpl();
  int stale = 0;
  for (const State& state : impl.m_states) {
    for (const OdDbObjectId& id : state.definedHidden)
      stale += id.isNull() || id.isErased() ? 1 : 0;
    for (int id : state.hiddenElements)
      stale += impl.m_graph && impl.m_graph->HasNode(id) ? 0 : 1;
  }
  const bool lostEditorState = !impl.m_states.empty() && !impl.HasState(impl.m_blockEditorState);
  const int errors = stale + (lostEditorState ? 1 : 0);
  if (errors == 0) return;
  auditInfo->errorsFound(errors);
  auditInfo->printError(GetName(), std::to_string(errors) + " stale visibility state entries",
                        "entities of the block and elements of the graph", "removed");
  if (!auditInfo->fixErrors()) return;
  Cleanup();
  if (lostEditorState) SetBlockEditorState(GetDefaultState());
  auditInfo->errorsFixed(errors);
}

void CJbCustBlockVisibilityParameter::Cleanup() {
  CJbCustBlockParameter::Cleanup();
  CJbCustBlockVisibilityParameterImpl& impl = *VisibilityImpl();
  for (State& state : impl.m_states) {
    for (unsigned i = state.definedHidden.length(); i-- > 0;) {
      if (!state.definedHidden[i].isNull() && !state.definedHidden[i].isErased()) continue;
      AssertWriteEnabled();
      state.definedHidden.removeAt(i);
      if (i < state.currentHidden.length()) state.currentHidden.removeAt(i);
    }
    for (unsigned i = state.hiddenElements.length(); i-- > 0;) {
      if (impl.m_graph && impl.m_graph->HasNode(state.hiddenElements[i])) continue;
      AssertWriteEnabled();
      state.hiddenElements.removeAt(i);
    }
  }
}

void CJbCustBlockVisibilityParameter::OnRemoved() {
  ForceShowAllEntities();
  for (const State& state : VisibilityImpl()->m_states)
    SetElementsVisible(state.hiddenElements, true);
  CJbCustBlockParameter::OnRemoved();
}

OdResult CJbCustBlockVisibilityParameter::dwgInFields(OdDbDwgFiler* filer,
                                                      CJbDbCustBlockGraph* graph) {
  const OdResult result = CJbCustBlockParameter::dwgInFields(filer, graph);
  if (result != eOk) return result;
  CJbCustBlockVisibilityParameterImpl& impl = *VisibilityImpl();
  try {
    const auto editorState = static_cast<unsigned>(filer->rdInt32());
    std::vector<State> states(static_cast<std::size_t>(readCount(filer, "state")));
    for (State& state : states) {
      state.name = filer->rdString();
      const int entityCount = readCount(filer, "hidden entity");
      for (int i = 0; i < entityCount; ++i)
        state.definedHidden.append(filer->rdHardPointerId());
      state.currentHidden = state.definedHidden;
      const int elementCount = readCount(filer, "hidden element");
      for (int i = 0; i < elementCount; ++i)
        state.hiddenElements.append(filer->rdInt32());
    }
    impl.m_blockEditorState = editorState;
    impl.m_states = std::move(states);
    impl.m_currentState = impl.m_updatedState = GetDefaultState();
  } catch (const OdError& error) {
    return error.code();
  }
  return filer->filerStatus();
}

void CJbCustBlockVisibilityParameter::dwgOutFields(OdDbDwgFiler* filer,
                                                   const CJbDbCustBlockGraph* graph) const {
  CJbCustBlockParameter::dwgOutFields(filer, graph);
  const CJbCustBlockVisibilityParameterImpl& impl = *VisibilityImpl();
  filer->wrInt32(static_cast<int>(impl.m_blockEditorState));
  filer->wrInt32(static_cast<int>(impl.m_states.size()));
  for (const State& state : impl.m_states) {
    filer->wrString(state.name);
    filer->wrInt32(static_cast<int>(state.definedHidden.length()));
    for (const OdDbObjectId& id : state.definedHidden)
      filer->wrHardPointerId(id);
    filer->wrInt32(static_cast<int>(state.hiddenElements.length()));
    for (int id : state.hiddenElements)
      filer->wrInt32(id);
  }
}

OdResBufPtr CJbCustBlockVisibilityParameter::GetValue(unsigned index) const {
  if (index != 0) return CJbCustBlockParameter::GetValue(index);
  return OdResBuf::newRb(OdResBuf::kRtInt32, GetUpdatedState());
}

bool CJbCustBlockVisibilityParameter::SetValue(unsigned index, const OdResBufPtr& value) {
  if (CJbCustBlockParameter::SetValue(index, value)) return true;
  if (index != 0 || value.isNull() || value->restype() != OdResBuf::kRtInt32 ||
      value->getInt32() < 0 ||
      !VisibilityImpl()->HasState(static_cast<unsigned>(value->getInt32())))
    return false;
  AssertWriteEnabled();
  VisibilityImpl()->m_updatedState = static_cast<unsigned>(value->getInt32());
  return true;
}

int CJbCustBlockVisibilityParameter::GetUpdatedState() const {
  AssertReadEnabled();
  return static_cast<int>(VisibilityImpl()->m_updatedState);
}

unsigned CJbCustBlockVisibilityParameter::GetBlockEditorState() const {
  AssertReadEnabled();
  return VisibilityImpl()->m_blockEditorState;
}

void CJbCustBlockVisibilityParameter::SetBlockEditorState(unsigned state) {
  if (VisibilityImpl()->m_blockEditorState == state) return;
  AssertWriteEnabled();
  VisibilityImpl()->m_blockEditorState = state;
}

unsigned CJbCustBlockVisibilityParameter::GetCurrentState() const {
  AssertReadEnabled();
  return VisibilityImpl()->m_currentState;
}

void CJbCustBlockVisibilityParameter::SetCurrentState(unsigned state) {
  AssertReadEnabled();
  VisibilityImpl()->m_currentState = state;
}

void CJbCustBlockVisibilityParameter::SetUpdatedState(unsigned state) {
  AssertReadEnabled();
  VisibilityImpl()->m_updatedState = state;
}

unsigned CJbCustBlockVisibilityParameter::GetStateCount() const {
  AssertReadEnabled();
  return static_cast<unsigned>(VisibilityImpl()->m_states.size());
}

OdString CJbCustBlockVisibilityParameter::GetStateName(unsigned state) const {
  AssertReadEnabled();
  return stateAt(*VisibilityImpl(), state).name;
}

void CJbCustBlockVisibilityParameter::CheckStateName(const OdString& name, int except) const {
  if (isBlank(name)) throw OdError(eInvalidInput, "a visibility state needs a name");
  if (VisibilityImpl()->FindName(name, except) >= 0)
    throw OdError(eDuplicateRecordName,
                  "a visibility state named \"" + name.str() + "\" exists already");
}

void CJbCustBlockVisibilityParameter::SetStateName(unsigned state, const OdString& name) {
  const State& current = stateAt(*VisibilityImpl(), state);
  if (current.name == name) return;
  CheckStateName(name, static_cast<int>(state));
  AssertWriteEnabled();
  VisibilityImpl()->m_states[state].name = name;
}

int CJbCustBlockVisibilityParameter::GetStateIndex(const OdString& name) const {
  AssertReadEnabled();
  const auto& states = VisibilityImpl()->m_states;
  for (std::size_t i = 0; i < states.size(); ++i) {
    if (states[i].name == name) return static_cast<int>(i);
  }
  return -1;
}

bool CJbCustBlockVisibilityParameter::HasState(const OdString& name) const {
  return GetStateIndex(name) >= 0;
}

OdArray<OdDbObjectId> CJbCustBlockVisibilityParameter::GetDefinedHiddenEntities(
    unsigned state) const {
  AssertReadEnabled();
  return stateAt(*VisibilityImpl(), state).definedHidden;
}

void CJbCustBlockVisibilityParameter::SetDefinedHiddenEntities(unsigned state,
                                                               const OdArray<OdDbObjectId>& ids) {
  if (stateAt(*VisibilityImpl(), state).definedHidden == ids) return;
  AssertWriteEnabled();
  State& target = VisibilityImpl()->m_states[state];
  target.definedHidden = target.currentHidden = ids;
}

OdArray<OdDbObjectId> CJbCustBlockVisibilityParameter::GetCurrentHiddenEntities(
    unsigned state) const {
  AssertReadEnabled();
  return stateAt(*VisibilityImpl(), state).currentHidden;
}

OdArray<int> CJbCustBlockVisibilityParameter::GetHiddenElementIds(unsigned state) const {
  AssertReadEnabled();
  return stateAt(*VisibilityImpl(), state).hiddenElements;
}

void CJbCustBlockVisibilityParameter::SetHiddenElementIds(unsigned state, const OdArray<int>& ids) {
  const OdArray<int> old = stateAt(*VisibilityImpl(), state).hiddenElements;
  if (old == ids) return;
  AssertWriteEnabled();
  if (state == GetDefaultState()) {
    SetElementsVisible(old, true);
    SetElementsVisible(ids, false);
  }
  VisibilityImpl()->m_states[state].hiddenElements = ids;
}

unsigned CJbCustBlockVisibilityParameter::AddState(const OdString& name,
                                                   const OdArray<OdDbObjectId>& hiddenEntities,
                                                   const OdArray<int>& hiddenElementIds) {
  CheckStateName(name, -1);
  AssertWriteEnabled();
  auto& states = VisibilityImpl()->m_states;
  states.push_back(State{name, hiddenEntities, hiddenEntities, hiddenElementIds});
  if (states.size() == 1) SetElementsVisible(hiddenElementIds, false);
  return static_cast<unsigned>(states.size() - 1);
}

void CJbCustBlockVisibilityParameter::RemoveState(unsigned state) {
  stateAt(*VisibilityImpl(), state);
  AssertWriteEnabled();
  CJbCustBlockVisibilityParameterImpl& impl = *VisibilityImpl();
  if (state == GetDefaultState()) {
    SetElementsVisible(impl.m_states[state].hiddenElements, true);
    if (impl.m_states.size() > 1) SetElementsVisible(impl.m_states[1].hiddenElements, false);
  }
  impl.m_states.erase(impl.m_states.begin() + state);
  for (unsigned* held : {&impl.m_blockEditorState, &impl.m_currentState, &impl.m_updatedState}) {
    if (*held == state)
      *held = GetDefaultState();
    else if (*held > state)
      --*held;
  }
}

void CJbCustBlockVisibilityParameter::ChangeStatePosition(unsigned from, unsigned to) {
  CJbCustBlockVisibilityParameterImpl& impl = *VisibilityImpl();
  stateAt(impl, from);
  stateAt(impl, to);
  if (from == to) return;
  AssertWriteEnabled();
  const OdArray<int> oldDefault = impl.m_states[GetDefaultState()].hiddenElements;
  State moved = std::move(impl.m_states[from]);
  impl.m_states.erase(impl.m_states.begin() + from);
  impl.m_states.insert(impl.m_states.begin() + to, std::move(moved));
  for (unsigned* held : {&impl.m_blockEditorState, &impl.m_currentState, &impl.m_updatedState})
    *held = movedIndex(*held, from, to);
  if (from == GetDefaultState() || to == GetDefaultState()) {
    SetElementsVisible(oldDefault, true);
    SetElementsVisible(impl.m_states[GetDefaultState()].hiddenElements, false);
  }
}

OdString CJbCustBlockVisibilityParameter::GenerateStateName() const {
  AssertReadEnabled();
  const std::string base = GetBaseStateName().str();
  for (unsigned n = 1;; ++n) {
    const OdString candidate(base + std::to_string(n));
    if (VisibilityImpl()->FindName(candidate, -1) < 0) return candidate;
  }
}

OdString CJbCustBlockVisibilityParameter::GetBaseStateName() {
  return odTranslate("custblock_element", "VisibilityState");
}

void CJbCustBlockVisibilityParameter::ForceHideEntities(unsigned state) {
  const CJbCustBlockVisibilityParameterImpl& impl = *VisibilityImpl();
  if (!impl.HasState(state)) return;
  ForceShowAllEntities();
  setVisibility(impl.m_states[state].currentHidden, OdDb::kInvisible);
}

void CJbCustBlockVisibilityParameter::ForceHideEntitiesForDefaultState() {
  ForceHideEntities(GetDefaultState());
}

void CJbCustBlockVisibilityParameter::ForceHideEntitiesForBlockEditorState() {
  ForceHideEntities(GetBlockEditorState());
}

void CJbCustBlockVisibilityParameter::ForceShowAllEntities() {
  for (const State& state : VisibilityImpl()->m_states)
    setVisibility(state.currentHidden, OdDb::kVisible);
}
