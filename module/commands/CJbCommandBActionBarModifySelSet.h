// CBMODIFYACTIVITYSELECTION: Adds entities to or removes them from the selection of an activity
// (action).
#pragma once

#include "module/commands/CJbCustBlockEditorCommand.h"

class CJbCommandBActionBarModifySelSet : public CJbCustBlockEditorCommand {
 public:
  CJbCommandBActionBarModifySelSet() : CJbCustBlockEditorCommand("CBMODIFYACTIVITYSELECTION") {}

 protected:
  void Run() override;
};
