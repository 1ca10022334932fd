// CBHIDE: Hides entities of a block in the visibility state being edited.
#pragma once

#include "module/commands/CJbCustBlockEditorCommand.h"

class CJbCommandBVHide : public CJbCustBlockEditorCommand {
 public:
  CJbCommandBVHide() : CJbCustBlockEditorCommand("CBHIDE") {}

 protected:
  void Run() override;
};
