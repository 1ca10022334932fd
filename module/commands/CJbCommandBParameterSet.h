// CBELEMENTSET: Adds an element together with an activity (action) it drives: the usual pairs in
// one step.
#pragma once

#include "module/commands/CJbCustBlockEditorCommand.h"

class CJbCommandBParameterSet : public CJbCustBlockEditorCommand {
 public:
  CJbCommandBParameterSet() : CJbCustBlockEditorCommand("CBELEMENTSET") {}

 protected:
  void Run() override;
};
