// CBREMOVEACTIVITY: Removes an activity (action) from a block.
#pragma once

#include "module/commands/CJbCustBlockEditorCommand.h"

class CJbCommandBActionBarDelete : public CJbCustBlockEditorCommand {
 public:
  CJbCommandBActionBarDelete() : CJbCustBlockEditorCommand("CBREMOVEACTIVITY") {}

 protected:
  void Run() override;
};
