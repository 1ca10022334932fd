#include "module/commands/CJbCommandBVMode.h"

void CJbCommandBVMode::Run() {
  Tell(OdString::format("BVMODE is %d.", m_preview.ShowsHiddenEntities() ? 1 : 0));
  const OdString answer = Ask("New value (0 hides, 1 shows hidden entities; empty keeps it):");
  if (answer.isEmpty()) return;
  if (answer != "0" && answer != "1")
    throw OdError(eInvalidInput, "BVMODE is 0 or 1, not \"" + answer.str() + "\"");
  m_preview.SetShowHiddenEntities(answer == "1");
}
