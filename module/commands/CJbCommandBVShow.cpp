#include "module/commands/CJbCommandBVShow.h"

void CJbCommandBVShow::Run() {
  ChangeHiddenEntities(false);
}
