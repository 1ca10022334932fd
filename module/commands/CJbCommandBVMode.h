// BVMODE: whether entities hidden by a visibility state are shown while a block is edited and
// dragged (1) or left out (0).
#pragma once

#include "module/CJbCustBlockDraggingPreviewFactory.h"
#include "module/commands/CJbCustBlockEditorCommand.h"

class CJbCommandBVMode : public CJbCustBlockEditorCommand {
 public:
  explicit CJbCommandBVMode(CJbCustBlockDraggingPreviewFactory& preview)
      : CJbCustBlockEditorCommand("BVMODE"), m_preview(preview) {}

 protected:
  void Run() override;

 private:
  CJbCustBlockDraggingPreviewFactory& m_preview;
};
