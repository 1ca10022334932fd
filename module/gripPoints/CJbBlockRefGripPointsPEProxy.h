// Grip points of block references while the module is loaded: a customizable reference shows its
// insertion grip followed by the grips of its block's elements; any other reference keeps its own.
// Only the insertion grip moves here, with the reference open for write; element grips are worked
// through the instance grip points by id, since working them may point the reference at a new
// block.
#pragma once

#include "module/gripPoints/CJbBlockInstanceGripPoints.h"
#include "platform/db/OdDbGripPointsPE.h"

class CJbBlockRefGripPointsPEProxy : public OdDbGripPointsPE {
 public:
  explicit CJbBlockRefGripPointsPEProxy(const CJbBlockInstanceGripPoints& instanceGrips)
      : m_instanceGrips(instanceGrips) {}

  OdResult getGripPoints(const OdDbEntity* entity, OdGePoint3dArray& points) const override;
  // eNotApplicable when the indices name element grips.
  OdResult moveGripPointsAt(OdDbEntity* entity, const OdIntArray& indices,
                            const OdGeVector3d& offset) const override;

 private:
  const CJbBlockInstanceGripPoints& m_instanceGrips;
};
