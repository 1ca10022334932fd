// Grip points of entities as a host shows and drags them. A module may attach this protocol to an
// entity class to supply the class's grips in place of the entity's own; hosts go through
// gripPointsOf and moveGripPointsOf, which fall back to the entity.
#pragma once

#include "platform/db/OdDbEntity.h"

class OdDbGripPointsPE : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbGripPointsPE);

 public:
  virtual OdResult getGripPoints(const OdDbEntity* entity, OdGePoint3dArray& points) const = 0;
  // Moves the grips at `indices` by `offset`; the entity is open for write.
  virtual OdResult moveGripPointsAt(OdDbEntity* entity, const OdIntArray& indices,
                                    const OdGeVector3d& offset) const = 0;

  static OdResult gripPointsOf(const OdDbEntity* entity, OdGePoint3dArray& points);
  static OdResult moveGripPointsOf(OdDbEntity* entity, const OdIntArray& indices,
                                   const OdGeVector3d& offset);
};
using OdDbGripPointsPEPtr = OdSmartPtr<OdDbGripPointsPE>;
