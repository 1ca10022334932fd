// CBVISIBILITY: The visibility-states list: each state with what it hides, and a new place for one
// state.
#pragma once

#include "module/commands/CJbCustBlockEditorCommand.h"

class CJbQtCommandBVState : public CJbCustBlockEditorCommand {
 public:
  CJbQtCommandBVState() : CJbCustBlockEditorCommand("CBVISIBILITY") {}

 protected:
  void Run() override;
};
