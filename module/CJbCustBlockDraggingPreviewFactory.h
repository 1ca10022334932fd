// Dragging preview of customizable block references: while such a reference is dragged, the host
// draws the entities of its block that its current state shows, leaving out those a visibility
// state hides unless the user asked to see hidden entities too.
#pragma once

#include "platform/host/CJbDraggingPreviewFactory.h"

class CJbCustBlockDraggingPreviewFactory : public CJbDraggingPreviewFactory {
 public:
  // Claims block references whose block has an evaluation graph.
  bool GetPreviewEntities(const OdDbEntity* dragged,
                          OdArray<OdDbObjectId>& entities) const override;

  bool ShowsHiddenEntities() const { return m_showHidden; }
  void SetShowHiddenEntities(bool show) { m_showHidden = show; }

 private:
  bool m_showHidden = false;
};
