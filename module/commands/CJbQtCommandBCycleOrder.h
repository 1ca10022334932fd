// CBCYCLEORDER: Shows the order in which a block's insertion points cycle and moves one entry.
#pragma once

#include "module/commands/CJbCustBlockEditorCommand.h"

class CJbQtCommandBCycleOrder : public CJbCustBlockEditorCommand {
 public:
  CJbQtCommandBCycleOrder() : CJbCustBlockEditorCommand("CBCYCLEORDER") {}

 protected:
  void Run() override;
};
