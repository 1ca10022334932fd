// CBACTIVITYICON: Shows where the activity bar of an element is drawn and moves it.
#pragma once

#include "module/commands/CJbCustBlockEditorCommand.h"

class CJbCommandBActionBar : public CJbCustBlockEditorCommand {
 public:
  CJbCommandBActionBar() : CJbCustBlockEditorCommand("CBACTIVITYICON") {}

 protected:
  void Run() override;
};
