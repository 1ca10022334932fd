// CBACTIVITY: Lists the activities (actions) an element of a block drives.
#pragma once

#include "module/commands/CJbCustBlockEditorCommand.h"

class CJbCommandBAction : public CJbCustBlockEditorCommand {
 public:
  CJbCommandBAction() : CJbCustBlockEditorCommand("CBACTIVITY") {}

 protected:
  void Run() override;
};
