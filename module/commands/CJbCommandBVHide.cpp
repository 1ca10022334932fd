#include "module/commands/CJbCommandBVHide.h"

void CJbCommandBVHide::Run() {
  ChangeHiddenEntities(true);
}
