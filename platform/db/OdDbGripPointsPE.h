// A protocol extension that takes over the grip points of the entities of the class it is
// attached to (and of that class's children), so that an application can give entities grips of
// its own. Without one, an entity shows and moves its own grips.
#pragma once

#include "platform/base/OdArray.h"
#include "platform/base/OdResult.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeVector3d.h"
#include "platform/rx/OdRxObject.h"

class OdDbEntity;

class OdDbGripPointsPE : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbGripPointsPE);

 public:
  virtual OdResult getGripPoints(const OdDbEntity* entity, OdGePoint3dArray& points) const = 0;
  virtual OdResult moveGripPointsAt(OdDbEntity* entity, const OdIntArray& indices,
                                    const OdGeVector3d& offset) = 0;
};
using OdDbGripPointsPEPtr = OdSmartPtr<OdDbGripPointsPE>;
