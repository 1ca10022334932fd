// A parameter holding a lookup table of values of other parameters.
#include "parameters/CJbCustBlockLookupParameter.h"

#include <algorithm>
#include <string>

#include "core/CJbDbCustBlockGraph.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "parameters/CJbCustBlockFormatVersion.h"
#include "parameters/CJbCustBlockLookupParameterImpl.h"
#include "parameters/grips/CJbCustBlockLookupGrip.h"
#include "platform/base/OdError.h"
#include "platform/db/OdDbAuditInfo.h"
#include "platform/db/OdDbWriteGuard.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/host/CJbTranslator.h"
#include "platform/resbuf/OdDxfCode.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockLookupParameter, "JbCustBlockLookupParameter",
                               CJbCustBlockParameter)

namespace {
using Column = CJbCustBlockLookupParameterImpl::Column;
using State = CJbCustBlockLookupParameterImpl::State;

// Cells hold the plain kinds a value of a parameter comes in; the file has a form for each.
bool isCellKind(int restype) {
  switch (OdDxfCode::_getType(restype)) {
    case OdDxfCode::Bool:
    case OdDxfCode::Integer16:
    case OdDxfCode::Integer32:
    case OdDxfCode::Double:
    case OdDxfCode::String:
    case OdDxfCode::Point:
      return true;
    default:
      return false;
  }
}

OdResBufPtr copyOf(const OdResBuf* value) {
  if (!value) return OdResBufPtr();
  OdResBufPtr copy = OdResBuf::newRb(value->restype());
  copy->copyFrom(value);
  return copy;
}

// An empty cell is filed as the result type of no value.
void writeCell(OdDbDwgFiler* filer, const OdResBuf* cell) {
  filer->wrInt32(cell ? cell->restype() : static_cast<int>(OdResBuf::kRtNone));
  if (!cell) return;
  switch (OdDxfCode::_getType(cell->restype())) {
    case OdDxfCode::Bool:
      filer->wrBool(cell->getBool());
      break;
    case OdDxfCode::Integer16:
      filer->wrInt16(cell->getInt16());
      break;
    case OdDxfCode::Integer32:
      filer->wrInt32(cell->getInt32());
      break;
    case OdDxfCode::Double:
      filer->wrDouble(cell->getDouble());
      break;
    case OdDxfCode::String:
      filer->wrString(cell->getString());
      break;
    default:
      filer->wrPoint3d(cell->getPoint3d());
      break;
  }
}

OdResBufPtr readCell(OdDbDwgFiler* filer) {
  const int restype = filer->rdInt32();
  if (restype == OdResBuf::kRtNone) return OdResBufPtr();
  if (!isCellKind(restype))
    throw OdError(eDwgObjectImproperlyRead,
                  "lookup table cell of result type " + std::to_string(restype));
  OdResBufPtr cell = OdResBuf::newRb(restype);
  switch (OdDxfCode::_getType(restype)) {
    case OdDxfCode::Bool:
      cell->setBool(filer->rdBool());
      break;
    case OdDxfCode::Integer16:
      cell->setInt16(filer->rdInt16());
      break;
    case OdDxfCode::Integer32:
      cell->setInt32(filer->rdInt32());
      break;
    case OdDxfCode::Double:
      cell->setDouble(filer->rdDouble());
      break;
    case OdDxfCode::String:
      cell->setString(filer->rdString());
      break;
    default:
      cell->setPoint3d(filer->rdPoint3d());
      break;
  }
  return cell;
}

int readCount(OdDbDwgFiler* filer, const char* what) {
  const int count = filer->rdInt32();
  if (count < 0)
    throw OdError(eDwgObjectImproperlyRead, std::string("negative lookup ") + what + " count");
  return count;
}

void checkIndex(unsigned index, std::size_t count, const char* what) {
  if (index >= count)
    throw OdError(eInvalidIndex, std::string("lookup table: no ") + what + " " +
                                     std::to_string(index) + " of " + std::to_string(count));
}

template <class T>
void moveEntry(std::vector<T>& entries, unsigned from, unsigned to) {
  T entry = std::move(entries[from]);
  entries.erase(entries.begin() + from);
  entries.insert(entries.begin() + to, std::move(entry));
}
}  // namespace

CJbCustBlockLookupParameter::CJbCustBlockLookupParameter()
    : CJbCustBlockParameter(new CJbCustBlockLookupParameterImpl) {
  LookupImpl()->m_unmatchedStateName = odTranslate("custblock_element", "Custom");
}

CJbCustBlockLookupParameter::~CJbCustBlockLookupParameter() = default;

CJbCustBlockLookupParameterImpl* CJbCustBlockLookupParameter::LookupImpl() const {
  return static_cast<CJbCustBlockLookupParameterImpl*>(ParameterImpl());
}

bool CJbCustBlockLookupParameter::IsSameValueKind(const OdResBuf* a, const OdResBuf* b) {
  if (!a || !b) return false;
  auto kind = [](int restype) {
    return restype == OdResBuf::kRtAngle ? static_cast<int>(OdResBuf::kRtDouble) : restype;
  };
  return kind(a->restype()) == kind(b->restype());
}

OdString CJbCustBlockLookupParameter::GetBaseName() const {
  return odTranslate("custblock_element", "Lookup");
}

void CJbCustBlockLookupParameter::CheckColumn(unsigned column) const {
  AssertReadEnabled();
  checkIndex(column, LookupImpl()->m_columns.size(), "column");
}

void CJbCustBlockLookupParameter::CheckState(unsigned state) const {
  AssertReadEnabled();
  checkIndex(state, LookupImpl()->m_states.size(), "row");
}

CJbCustBlockParameterPtr CJbCustBlockLookupParameter::ColumnParameter(unsigned column) const {
  const CJbCustBlockLookupParameterImpl& impl = *LookupImpl();
  if (!impl.m_graph) return CJbCustBlockParameterPtr();
  return CJbCustBlockParameter::cast(impl.m_graph->GetNode(impl.m_columns[column].id).get());
}

bool CJbCustBlockLookupParameter::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockParameter::Evaluate(context)) return false;
  TakeGripRequest();
  if (context && context->IsAfterBlockRedefine()) UpdateColumnConnections();
  return true;
}

void CJbCustBlockLookupParameter::TakeGripRequest() {
  const CJbCustBlockLookupGripPtr grip = CJbCustBlockLookupGrip::cast(GripNode(0).get());
  if (grip.isNull() || !grip->NeedEvaluate()) return;
  const int requested = grip->GetState();
  grip->ResetState();
  if (!IsReadOnly() && requested >= 0 &&
      static_cast<unsigned>(requested) < LookupImpl()->m_states.size())
    SetUpdatedState(requested);
}

bool CJbCustBlockLookupParameter::EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  const bool result = CJbCustBlockParameter::EndEvaluate(context);
  LookupImpl()->m_updatePending = false;
  return result;
}

bool CJbCustBlockLookupParameter::LoadInstance(OdResBufPtr& cursor,
                                               CJbDbCustBlockGraphInstanceContext* context) {
  return CJbCustBlockElement::LoadInstance(cursor, context);
}

OdResBufPtr CJbCustBlockLookupParameter::SaveInstance(CJbDbCustBlockGraphInstanceContext* context) {
  return CJbCustBlockElement::SaveInstance(context);
}

bool CJbCustBlockLookupParameter::NeedEvaluate() const {
  AssertReadEnabled();
  return LookupImpl()->m_updatePending || CJbCustBlockParameter::NeedEvaluate();
}

bool CJbCustBlockLookupParameter::IsValid() const {
  const CJbCustBlockLookupParameterImpl& impl = *LookupImpl();
  return !impl.m_columns.empty() && !impl.m_states.empty() && CJbCustBlockParameter::IsValid();
}

OdResult CJbCustBlockLookupParameter::dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) {
  const OdResult result = CJbCustBlockParameter::dwgInFields(filer, graph);
  if (result != eOk) return result;
  // Read whole before anything is taken, so that a damaged record leaves the table as it was.
  std::vector<Column> columns;
  std::vector<State> states;
  bool readOnly = false;
  OdString unmatched;
  try {
    const int columnCount = readCount(filer, "column");
    for (int i = 0; i < columnCount; ++i) {
      Column column;
      column.id = filer->rdInt32();
      column.valueIndex = static_cast<unsigned>(filer->rdInt32());
      columns.push_back(column);
    }
    const int stateCount = readCount(filer, "row");
    for (int i = 0; i < stateCount; ++i)
      states.push_back(State{filer->rdString(), {}});
    unmatched = filer->rdString();
    for (auto& state : states) {
      if (readCount(filer, "cell") != columnCount)
        throw OdError(eDwgObjectImproperlyRead, "lookup table row with another cell count");
      for (int i = 0; i < columnCount; ++i)
        state.cells.push_back(readCell(filer));
    }
    if (CJbCustBlockFormatVersion::IsAtLeast(graph, 0, 1)) readOnly = filer->rdBool();
  } catch (const OdError& error) {
    return error.code();
  }
  if (filer->filerStatus() != eOk) return filer->filerStatus();
  CJbCustBlockLookupParameterImpl& impl = *LookupImpl();
  impl.m_columns = std::move(columns);
  impl.m_states = std::move(states);
  impl.m_unmatchedStateName = unmatched;
  impl.m_readOnly = readOnly;
  return eOk;
}

void CJbCustBlockLookupParameter::dwgOutFields(OdDbDwgFiler* filer,
                                               const CJbDbCustBlockGraph* graph) const {
  CJbCustBlockParameter::dwgOutFields(filer, graph);
  const CJbCustBlockLookupParameterImpl& impl = *LookupImpl();
  filer->wrInt32(static_cast<int>(impl.m_columns.size()));
  for (const Column& column : impl.m_columns) {
    filer->wrInt32(column.id);
    filer->wrInt32(static_cast<int>(column.valueIndex));
  }
  filer->wrInt32(static_cast<int>(impl.m_states.size()));
  for (const State& state : impl.m_states)
    filer->wrString(state.name);
  filer->wrString(impl.m_unmatchedStateName);
  for (const State& state : impl.m_states) {
    filer->wrInt32(static_cast<int>(state.cells.size()));
    for (const OdResBufPtr& cell : state.cells)
      writeCell(filer, cell.get());
  }
  if (CJbCustBlockFormatVersion::IsAtLeast(graph, 0, 1)) filer->wrBool(impl.m_readOnly);
}

void CJbCustBlockLookupParameter::Audit(OdDbAuditInfo* auditInfo) {
  CJbCustBlockParameter::Audit(auditInfo);
  CJbCustBlockLookupParameterImpl& impl = *LookupImpl();
  if (!impl.m_graph) return;
  const OdString object = impl.m_graph->describe();
  const OdString self = "lookup " + GetName();
  std::vector<unsigned> lostColumns;
  std::vector<std::pair<unsigned, unsigned>> strayCells;  // (row, column)
  for (unsigned c = 0; c < impl.m_columns.size(); ++c) {
    const CJbCustBlockParameterPtr parameter = ColumnParameter(c);
    const OdResBufPtr value =
        parameter.isNull() ? OdResBufPtr() : parameter->GetValue(impl.m_columns[c].valueIndex);
    const OdString column = self + " column " + OdString::format("%u", c);
    if (value.isNull()) {
      auditInfo->errorsFound(1);
      auditInfo->printError(object, column + " names no value of a parameter",
                            "a value of a parameter of the block", "column removed");
      lostColumns.push_back(c);
      continue;
    }
    for (unsigned s = 0; s < impl.m_states.size(); ++s) {
      const OdResBufPtr& cell = impl.m_states[s].cells[c];
      if (cell.isNull() || IsSameValueKind(cell.get(), value.get())) continue;
      auditInfo->errorsFound(1);
      auditInfo->printError(object, column + " row " + OdString::format("%u", s),
                            "a value of the column's kind", "cell emptied");
      strayCells.emplace_back(s, c);
    }
  }
  if (!auditInfo->fixErrors() || (lostColumns.empty() && strayCells.empty())) return;
  OdDbWriteGuard writable(impl.m_graph);
  AssertWriteEnabled();
  for (const auto& cell : strayCells)
    impl.m_states[cell.first].cells[cell.second] = OdResBufPtr();
  for (auto it = lostColumns.rbegin(); it != lostColumns.rend(); ++it) {
    impl.m_columns.erase(impl.m_columns.begin() + *it);
    for (State& state : impl.m_states)
      state.cells.erase(state.cells.begin() + *it);
  }
  auditInfo->errorsFixed(static_cast<int>(lostColumns.size() + strayCells.size()));
  UpdateColumnConnections();
}

OdResBufPtr CJbCustBlockLookupParameter::GetValue(unsigned index) const {
  if (index != 0) return CJbCustBlockParameter::GetValue(index);
  return OdResBuf::newRb(OdResBuf::kRtInt32, GetCurrentState());
}

bool CJbCustBlockLookupParameter::SetValue(unsigned index, const OdResBufPtr& value) {
  if (CJbCustBlockParameter::SetValue(index, value)) return true;
  if (index != 0 || value.isNull() || value->restype() != OdResBuf::kRtInt32 || IsReadOnly())
    return false;
  const int state = value->getInt32();
  if (state < 0 || static_cast<unsigned>(state) >= GetStateCount()) return false;
  // An action attached after the columns is put first before the row is evaluated.
  UpdateColumnConnections();
  SetUpdatedState(state);
  return true;
}

OdResBufPtr CJbCustBlockLookupParameter::GetDefinitionValue(unsigned index) {
  if (index != 0) return CJbCustBlockParameter::GetDefinitionValue(index);
  return OdResBuf::newRb(OdResBuf::kRtInt32, MatchRow(true));
}

bool CJbCustBlockLookupParameter::SetDefinitionValue(unsigned index, const OdResBufPtr& value) {
  if (index != 0) return CJbCustBlockParameter::SetDefinitionValue(index, value);
  if (value.isNull() || value->restype() != OdResBuf::kRtInt32) return false;
  const int state = value->getInt32();
  if (state < 0 || static_cast<unsigned>(state) >= GetStateCount()) return false;
  if (MatchRow(true) == state) return true;
  const CJbCustBlockLookupParameterImpl& impl = *LookupImpl();
  const auto& cells = impl.m_states[static_cast<unsigned>(state)].cells;
  std::vector<CJbCustBlockParameterPtr> parameters;
  for (unsigned c = 0; c < impl.m_columns.size(); ++c) {
    parameters.push_back(ColumnParameter(c));
    if (parameters.back().isNull() || cells[c].isNull()) return false;
  }
  // What each column had, to put back when a later column fails.
  std::vector<OdResBufPtr> previous;
  auto restore = [&]() {
    for (unsigned c = static_cast<unsigned>(previous.size()); c-- > 0;)
      parameters[c]->SetDefinitionValue(impl.m_columns[c].valueIndex, previous[c]);
  };
  // A value set may snap a cell to another value, and two columns of one parameter may move each
  // other: the row counts as written only when every column holds its cell afterwards.
  auto holdsRow = [&]() {
    for (unsigned c = 0; c < parameters.size(); ++c) {
      const OdResBufPtr now = parameters[c]->GetDefinitionValue(impl.m_columns[c].valueIndex);
      if (!IsEqualValue(now.get(), cells[c].get())) return false;
    }
    return true;
  };
  bool written = true;
  try {
    for (unsigned c = 0; c < parameters.size() && written; ++c) {
      const unsigned valueIndex = impl.m_columns[c].valueIndex;
      OdResBufPtr old = parameters[c]->GetDefinitionValue(valueIndex);
      if (old.isNull()) break;
      previous.push_back(old);
      written = parameters[c]->SetDefinitionValue(valueIndex, cells[c]);
    }
    written = written && previous.size() == parameters.size() && holdsRow();
  } catch (...) {
    restore();
    throw;
  }
  if (!written) restore();
  return written;
}

void CJbCustBlockLookupParameter::SetUpdatedState(int state) {
  AssertReadEnabled();
  LookupImpl()->m_requestedState = state;
  LookupImpl()->m_updatePending = true;
}

int CJbCustBlockLookupParameter::GetUpdatedState() const {
  AssertReadEnabled();
  const CJbCustBlockLookupParameterImpl& impl = *LookupImpl();
  return impl.m_updatePending ? impl.m_requestedState : GetCurrentState();
}

unsigned CJbCustBlockLookupParameter::GetParameterCount() const {
  AssertReadEnabled();
  return static_cast<unsigned>(LookupImpl()->m_columns.size());
}

CJbCustBlockLookupParameter::ParameterId CJbCustBlockLookupParameter::GetParameterId(
    unsigned column) const {
  CheckColumn(column);
  const Column& entry = LookupImpl()->m_columns[column];
  return ParameterId(entry.id, entry.valueIndex);
}

bool CJbCustBlockLookupParameter::AddParameterId(int id, unsigned valueIndex) {
  CJbCustBlockLookupParameterImpl& impl = *LookupImpl();
  if (!impl.m_graph || id == GetElementId() || HasParameterId(id, valueIndex)) return false;
  const CJbCustBlockParameterPtr parameter =
      CJbCustBlockParameter::cast(impl.m_graph->GetNode(id).get());
  if (parameter.isNull() || parameter->GetValue(valueIndex).isNull()) return false;
  AssertWriteEnabled();
  impl.m_columns.push_back(Column{id, valueIndex});
  for (State& state : impl.m_states)
    state.cells.emplace_back();
  UpdateColumnConnections();
  return true;
}

bool CJbCustBlockLookupParameter::HasParameterId(int id, unsigned valueIndex) const {
  AssertReadEnabled();
  const auto& columns = LookupImpl()->m_columns;
  return std::any_of(columns.begin(), columns.end(), [&](const Column& column) {
    return column.id == id && column.valueIndex == valueIndex;
  });
}

bool CJbCustBlockLookupParameter::RemoveParameterId(int id, unsigned valueIndex) {
  const auto& columns = LookupImpl()->m_columns;
  for (unsigned c = 0; c < columns.size(); ++c) {
    if (columns[c].id != id || columns[c].valueIndex != valueIndex) continue;
    RemoveParameter(c);
    return true;
  }
  return false;
}

void CJbCustBlockLookupParameter::RemoveParameter(unsigned column) {
  CheckColumn(column);
  AssertWriteEnabled();
  CJbCustBlockLookupParameterImpl& impl = *LookupImpl();
  impl.m_columns.erase(impl.m_columns.begin() + column);
  for (State& state : impl.m_states)
    state.cells.erase(state.cells.begin() + column);
  UpdateColumnConnections();
}

void CJbCustBlockLookupParameter::MoveParameterId(unsigned from, unsigned to) {
  CheckColumn(from);
  CheckColumn(to);
  if (from == to) return;
  AssertWriteEnabled();
  CJbCustBlockLookupParameterImpl& impl = *LookupImpl();
  moveEntry(impl.m_columns, from, to);
  for (State& state : impl.m_states)
    moveEntry(state.cells, from, to);
}

unsigned CJbCustBlockLookupParameter::GetStateCount() const {
  AssertReadEnabled();
  return static_cast<unsigned>(LookupImpl()->m_states.size());
}

OdString CJbCustBlockLookupParameter::GetStateName(unsigned state) const {
  CheckState(state);
  return LookupImpl()->m_states[state].name;
}

void CJbCustBlockLookupParameter::SetStateName(unsigned state, const OdString& name) {
  CheckState(state);
  OdString& stored = LookupImpl()->m_states[state].name;
  if (stored == name) return;
  AssertWriteEnabled();
  stored = name;
}

OdResBufPtr CJbCustBlockLookupParameter::GetParameterValue(unsigned column, unsigned state) const {
  CheckColumn(column);
  CheckState(state);
  return copyOf(LookupImpl()->m_states[state].cells[column].get());
}

bool CJbCustBlockLookupParameter::SetParameterValue(unsigned column, unsigned state,
                                                    const OdResBufPtr& value) {
  CheckColumn(column);
  CheckState(state);
  OdResBufPtr& cell = LookupImpl()->m_states[state].cells[column];
  if (value.isNull()) {
    if (cell.isNull()) return true;
    AssertWriteEnabled();
    cell = OdResBufPtr();
    return true;
  }
  const CJbCustBlockParameterPtr parameter = ColumnParameter(column);
  const OdResBufPtr kind = parameter.isNull()
                               ? OdResBufPtr()
                               : parameter->GetValue(LookupImpl()->m_columns[column].valueIndex);
  if (!isCellKind(value->restype()) || !IsSameValueKind(value.get(), kind.get())) return false;
  if (!cell.isNull() && cell->restype() == value->restype() && cell->isEqualTo(value.get()))
    return true;
  AssertWriteEnabled();
  cell = copyOf(value.get());
  return true;
}

unsigned CJbCustBlockLookupParameter::AddState() {
  AssertWriteEnabled();
  CJbCustBlockLookupParameterImpl& impl = *LookupImpl();
  impl.m_states.push_back(
      State{GenerateStateName(), std::vector<OdResBufPtr>(impl.m_columns.size())});
  return static_cast<unsigned>(impl.m_states.size() - 1);
}

void CJbCustBlockLookupParameter::RemoveState(unsigned state) {
  CheckState(state);
  AssertWriteEnabled();
  auto& states = LookupImpl()->m_states;
  states.erase(states.begin() + state);
}

void CJbCustBlockLookupParameter::MoveState(unsigned from, unsigned to) {
  CheckState(from);
  CheckState(to);
  if (from == to) return;
  AssertWriteEnabled();
  moveEntry(LookupImpl()->m_states, from, to);
}

OdString CJbCustBlockLookupParameter::GenerateStateName() const {
  AssertReadEnabled();
  const OdString base = GetBaseStateName();
  const auto& states = LookupImpl()->m_states;
  for (unsigned counter = 1;; ++counter) {
    const OdString candidate = base + OdString::format("%u", counter);
    if (std::none_of(states.begin(), states.end(),
                     [&](const State& state) { return state.name.iEquals(candidate); }))
      return candidate;
  }
}

OdString CJbCustBlockLookupParameter::GetBaseStateName() {
  return odTranslate("custblock_element", "LookupState");
}

const OdString& CJbCustBlockLookupParameter::GetUnmatchedStateName() const {
  AssertReadEnabled();
  return LookupImpl()->m_unmatchedStateName;
}

void CJbCustBlockLookupParameter::SetUnmatchedStateName(const OdString& name) {
  if (LookupImpl()->m_unmatchedStateName == name) return;
  AssertWriteEnabled();
  LookupImpl()->m_unmatchedStateName = name;
}

bool CJbCustBlockLookupParameter::IsReadOnly() const {
  AssertReadEnabled();
  return LookupImpl()->m_readOnly;
}

void CJbCustBlockLookupParameter::SetReadOnly(bool readOnly) {
  if (LookupImpl()->m_readOnly == readOnly) return;
  AssertWriteEnabled();
  LookupImpl()->m_readOnly = readOnly;
}

int CJbCustBlockLookupParameter::GetCurrentState() const {
  return MatchRow(false);
}

int CJbCustBlockLookupParameter::MatchRow(bool definition) const {
  AssertReadEnabled();
  const CJbCustBlockLookupParameterImpl& impl = *LookupImpl();
  if (impl.m_matching) return -1;
  impl.m_matching = true;
  struct MatchingGuard {
    bool& flag;
    ~MatchingGuard() { flag = false; }
  } guard{impl.m_matching};
  // A column whose parameter is gone has no input, and an empty value never matches.
  std::vector<OdResBufPtr> inputs;
  inputs.reserve(impl.m_columns.size());
  for (unsigned c = 0; c < impl.m_columns.size(); ++c) {
    const CJbCustBlockParameterPtr parameter = ColumnParameter(c);
    const unsigned valueIndex = impl.m_columns[c].valueIndex;
    if (parameter.isNull())
      inputs.emplace_back();
    else
      inputs.push_back(definition ? parameter->GetDefinitionValue(valueIndex)
                                  : parameter->GetValue(valueIndex));
  }
  for (unsigned s = 0; s < impl.m_states.size(); ++s) {
    const auto& cells = impl.m_states[s].cells;
    bool matches = true;
    for (unsigned c = 0; c < cells.size() && matches; ++c)
      matches = IsEqualValue(cells[c].get(), inputs[c].get());
    if (matches) return static_cast<int>(s);
  }
  return -1;
}

OdString CJbCustBlockLookupParameter::GetCurrentStateName() const {
  const int state = GetCurrentState();
  return state < 0 ? GetUnmatchedStateName() : LookupImpl()->m_states[state].name;
}

void CJbCustBlockLookupParameter::UpdateColumnConnections() {
  const CJbCustBlockLookupParameterImpl& impl = *LookupImpl();
  if (!impl.m_graph) return;
  auto isParameter = [&impl](int id) {
    return !CJbCustBlockParameter::cast(impl.m_graph->GetNode(id).get()).isNull();
  };
  OdArray<int> targets;
  for (unsigned c = 0; c < impl.m_columns.size(); ++c) {
    const int id = impl.m_columns[c].id;
    if (id != GetElementId() && !targets.contains(id) && isParameter(id)) targets.append(id);
  }
  // The graph evaluates what a node feeds in the order it feeds them: actions first, so that the
  // row is written before the parameters take it.
  OdArray<int> fed;
  GetConnections(fed, false, true);
  OdArray<int> wanted;
  for (int id : fed) {
    if (!isParameter(id)) wanted.append(id);
  }
  for (int id : targets)
    wanted.append(id);
  if (fed == wanted) return;
  for (int id : fed) {
    if (isParameter(id)) RemoveConnection(id, false, true);
  }
  for (int id : targets)
    AddConnection(id, false, true);
}
