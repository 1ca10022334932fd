// CBSHOW: Shows entities of a block in the visibility state being edited.
#pragma once

#include "module/commands/CJbCustBlockEditorCommand.h"

class CJbCommandBVShow : public CJbCustBlockEditorCommand {
 public:
  CJbCommandBVShow() : CJbCustBlockEditorCommand("CBSHOW") {}

 protected:
  void Run() override;
};
