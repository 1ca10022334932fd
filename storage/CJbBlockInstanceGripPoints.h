// Grips of references of customizable blocks: after the reference's own grips, the grips of its
// graph that are shown, where the reference's state puts them. Dragging one edits that reference
// alone, through the editor helper. Attached to the block reference class under
// OdDbGripPointsPE.
#pragma once

#include "platform/db/OdDbGripPointsPE.h"

class CJbBlockInstanceGripPoints : public OdDbGripPointsPE {
  ODRX_DECLARE_MEMBERS(CJbBlockInstanceGripPoints);

 public:
  OdResult getGripPoints(const OdDbEntity* entity, OdGePoint3dArray& points) const override;
  OdResult moveGripPointsAt(OdDbEntity* entity, const OdIntArray& indices,
                            const OdGeVector3d& offset) override;
};
