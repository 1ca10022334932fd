// CBELEMENT: Adds an element (parameter) of a named kind to a block, with a grip on each of its
// points.
#pragma once

#include "module/commands/CJbCustBlockEditorCommand.h"

class CJbCommandBParameter : public CJbCustBlockEditorCommand {
 public:
  CJbCommandBParameter() : CJbCustBlockEditorCommand("CBELEMENT") {}

 protected:
  void Run() override;
};
