// The grips of customizable block references: the visible grips of the block's graph in the
// reference's state, in drawing coordinates. Working one edits that reference alone, through the
// editor helper, which gives the reference a block of its own when it shares one.
#pragma once

#include "platform/host/CJbGripPointsPE.h"

class CJbBlockInstanceGripPoints : public CJbGripPointsPE {
 public:
  OdArray<Grip> GetGrips(const OdDbEntity* entity) const override;
  bool MoveGrip(const OdDbObjectId& entity, unsigned index,
                const OdGeVector3d& offset) const override;
  bool ClickGrip(const OdDbObjectId& entity, unsigned index, int state) const override;
};
