// CBRENAMEACTIVITY: Renames an activity (action); names stay unique within the block.
#pragma once

#include "module/commands/CJbCustBlockEditorCommand.h"

class CJbCommandBActionBarRename : public CJbCustBlockEditorCommand {
 public:
  CJbCommandBActionBarRename() : CJbCustBlockEditorCommand("CBRENAMEACTIVITY") {}

 protected:
  void Run() override;
};
