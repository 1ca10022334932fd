// -CBVISIBILITY: Lists a block's visibility states and sets, adds, renames or deletes one from the
// command line.
#pragma once

#include "module/commands/CJbCustBlockEditorCommand.h"

class CJbCommandBVState : public CJbCustBlockEditorCommand {
 public:
  CJbCommandBVState() : CJbCustBlockEditorCommand("-CBVISIBILITY") {}

 protected:
  void Run() override;
};
