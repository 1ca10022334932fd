// CBACTIVITYTOOL: Adds an activity (action) of a named kind to an element of a block.
#pragma once

#include "module/commands/CJbCustBlockEditorCommand.h"

class CJbCommandBActionTool : public CJbCustBlockEditorCommand {
 public:
  CJbCommandBActionTool() : CJbCustBlockEditorCommand("CBACTIVITYTOOL") {}

 protected:
  void Run() override;
};
