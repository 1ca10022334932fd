#include "module/commands/CJbCommandBActionBarNewSelSet.h"

#include "actions/CJbCustBlockAction.h"

void CJbCommandBActionBarNewSelSet::Run() {
  const CJbDbCustBlockGraphPtr graph = AskGraph(OdDb::kForWrite);
  const OdSmartPtr<CJbCustBlockAction> action = CJbCustBlockAction::cast(
      AskElement(graph.get(), "Activity name:", CJbCustBlockAction::desc()).get());
  const OdDbObjectIdArray entities = AskEntities("Entity handles:");
  action->SetEntities(0, entities);
  Tell(OdString::format("%s acts on %u entities.", action->GetName().c_str(),
                        static_cast<unsigned>(entities.length())));
}
