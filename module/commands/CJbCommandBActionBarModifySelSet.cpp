#include "module/commands/CJbCommandBActionBarModifySelSet.h"

#include "actions/CJbCustBlockAction.h"

void CJbCommandBActionBarModifySelSet::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  const OdSmartPtr<CJbCustBlockAction> action = CJbCustBlockAction::cast(
      AskElement(graph.get(), "Activity name:", CJbCustBlockAction::desc()).get());
  const OdString mode = AskRequired("Add or Remove:");
  const bool add = mode.iEquals("Add") || mode.iEquals("A");
  if (!add && !mode.iEquals("Remove") && !mode.iEquals("R"))
    throw OdError(eInvalidInput, "answer Add or Remove, not \"" + mode.str() + "\"");
  OdDbObjectIdArray selection = action->GetEntities(0);
  for (const OdDbObjectId& id : AskEntities("Entity handles:")) {
    if (add && !selection.contains(id)) selection.append(id);
    if (!add) selection.remove(id);
  }
  action->SetEntities(0, selection);
  Tell(OdString::format("%s acts on %u entities.", action->GetName().c_str(),
                        static_cast<unsigned>(selection.length())));
}
