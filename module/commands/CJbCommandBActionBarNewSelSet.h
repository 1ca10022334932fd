// CBNEWACTIVITYSELECTION: Gives an activity (action) a new selection of the block's entities.
#pragma once

#include "module/commands/CJbCustBlockEditorCommand.h"

class CJbCommandBActionBarNewSelSet : public CJbCustBlockEditorCommand {
 public:
  CJbCommandBActionBarNewSelSet() : CJbCustBlockEditorCommand("CBNEWACTIVITYSELECTION") {}

 protected:
  void Run() override;
};
