// An action that writes the chosen row of a lookup table into the parameters it names.
#include "actions/CJbCustBlockLookupAction.h"

#include <vector>

#include "actions/CJbCustBlockActionImpl.h"
#include "core/CJbDbCustBlockGraph.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "parameters/CJbCustBlockLookupParameter.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockLookupAction, "JbCustBlockLookupAction",
                               CJbCustBlockAction)

namespace {
// One cell on its way into a parameter value, with what stood there before.
struct CellWrite {
  CJbCustBlockParameterPtr target;
  unsigned valueIndex = 0;
  OdResBufPtr value;
  OdResBufPtr previous;
};

// The updated positions of a parameter, to put back after a refused row.
struct PositionSnapshot {
  CJbCustBlockParameterPtr parameter;
  std::vector<OdGePoint3d> updated;
};

void takeSnapshot(std::vector<PositionSnapshot>& snapshots,
                  const CJbCustBlockParameterPtr& target) {
  for (const auto& snapshot : snapshots) {
    if (snapshot.parameter == target) return;
  }
  PositionSnapshot snapshot{target, {}};
  for (unsigned i = 0; i < target->GetPointCount(); ++i)
    snapshot.updated.push_back(target->GetUpdatedPosition(i));
  snapshots.push_back(snapshot);
}

void rollBack(const std::vector<CellWrite>& written,
              const std::vector<PositionSnapshot>& snapshots) {
  for (auto it = written.rbegin(); it != written.rend(); ++it)
    it->target->SetValue(it->valueIndex, it->previous);
  for (const auto& snapshot : snapshots) {
    for (unsigned i = 0; i < snapshot.updated.size(); ++i)
      snapshot.parameter->SetUpdatedPosition(i, snapshot.updated[i]);
  }
}
}  // namespace

CJbCustBlockLookupAction::CJbCustBlockLookupAction()
    : CJbCustBlockAction(new CJbCustBlockActionImpl(CJbCustBlockActionImpl::kNoModifier, 0)) {}

CJbCustBlockLookupAction::~CJbCustBlockLookupAction() = default;

OdString CJbCustBlockLookupAction::GetBaseName() const {
  return odTranslate("custblock_element", "Table");
}

bool CJbCustBlockLookupAction::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockAction::Evaluate(context)) return false;
  if (context && context->IsAfterBlockRedefine()) return true;
  const CJbCustBlockLookupParameterPtr lookup =
      CJbCustBlockLookupParameter::cast(ParameterNode().get());
  if (lookup.isNull()) return false;
  const int row = lookup->GetUpdatedState();
  if (row < 0 || static_cast<unsigned>(row) >= lookup->GetStateCount()) return false;
  const CJbDbCustBlockGraph* graph = ActionImpl()->m_graph;

  // Every cell is checked against the value it feeds before the first one is written.
  std::vector<CellWrite> writes;
  for (unsigned column = 0; column < lookup->GetParameterCount(); ++column) {
    const CJbCustBlockLookupParameter::ParameterId id = lookup->GetParameterId(column);
    CellWrite write;
    write.target = CJbCustBlockParameter::cast(graph->GetNode(id.first).get());
    if (write.target.isNull()) return false;
    write.valueIndex = id.second;
    write.value = lookup->GetParameterValue(column, static_cast<unsigned>(row));
    write.previous = write.target->GetValue(id.second);
    if (!CJbCustBlockLookupParameter::IsSameValueKind(write.value.get(), write.previous.get()))
      return false;
    writes.push_back(write);
  }
  std::vector<PositionSnapshot> snapshots;
  for (const auto& write : writes)
    takeSnapshot(snapshots, write.target);
  std::vector<CellWrite> written;
  for (const auto& write : writes) {
    written.push_back(write);
    if (write.target->SetValue(write.valueIndex, write.value)) continue;
    rollBack(written, snapshots);
    return false;
  }
  return true;
}

bool CJbCustBlockLookupAction::IsValid() const {
  const CJbCustBlockLookupParameterPtr lookup =
      CJbCustBlockLookupParameter::cast(ParameterNode().get());
  return !lookup.isNull() && lookup->GetStateCount() != 0 && lookup->GetParameterCount() != 0;
}

bool CJbCustBlockLookupAction::IsParameterPointIndexReadOnly() const {
  return true;
}

OdArray<OdRxClass*> CJbCustBlockLookupAction::GetAcceptableParameters() const {
  return OdArray<OdRxClass*>{CJbCustBlockLookupParameter::desc()};
}

bool CJbCustBlockLookupAction::IsOneActionPerParameter() const {
  return true;
}
