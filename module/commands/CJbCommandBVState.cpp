#include "module/commands/CJbCommandBVState.h"

namespace {
// The state of that name, ignoring case as state names do; eKeyNotFound otherwise.
unsigned stateNamed(const CJbCustBlockVisibilityParameter& parameter, const OdString& name) {
  for (unsigned state = 0; state < parameter.GetStateCount(); ++state)
    if (parameter.GetStateName(state).iEquals(name)) return state;
  throw OdError(eKeyNotFound, "there is no visibility state \"" + name.str() + "\"");
}
}  // namespace

void CJbCommandBVState::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  const CJbCustBlockVisibilityParameterPtr parameter = VisibilityParameterOf(graph.get());
  for (unsigned state = 0; state < parameter->GetStateCount(); ++state) {
    Tell((state == parameter->GetBlockEditorState() ? "* " : "  ") +
         parameter->GetStateName(state));
  }
  const OdString option = AskRequired("Option [Set/New/Rename/Delete]:");
  if (option.iEquals("Set") || option.iEquals("S")) {
    parameter->SetBlockEditorState(stateNamed(*parameter, AskRequired("State name:")));
    parameter->ForceHideEntitiesForBlockEditorState();
  } else if (option.iEquals("New") || option.iEquals("N")) {
    const OdString name = Ask("New state name (empty for a generated one):");
    const unsigned state =
        parameter->AddState(name.isEmpty() ? parameter->GenerateStateName() : name, {}, {});
    Tell("Added " + parameter->GetStateName(state) + ".");
  } else if (option.iEquals("Rename") || option.iEquals("R")) {
    const unsigned state = stateNamed(*parameter, AskRequired("State name:"));
    parameter->SetStateName(state, AskRequired("New name:"));
  } else if (option.iEquals("Delete") || option.iEquals("D")) {
    const unsigned state = stateNamed(*parameter, AskRequired("State name:"));
    if (parameter->GetStateCount() == 1)
      throw OdError(eNotApplicable, "the last visibility state cannot be deleted");
    parameter->RemoveState(state);
    parameter->ForceHideEntitiesForBlockEditorState();
  } else {
    throw OdError(eInvalidInput, "answer Set, New, Rename or Delete, not \"" + option.str() + "\"");
  }
}
