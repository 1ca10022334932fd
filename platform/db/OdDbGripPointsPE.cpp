#include "platform/db/OdDbGripPointsPE.h"

#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbGripPointsPE, OdRxObject)

namespace {
OdDbGripPointsPEPtr extensionOf(const OdDbEntity* entity) {
  return OdDbGripPointsPE::cast(entity->isA()->getX(OdDbGripPointsPE::desc()).get());
}
}  // namespace

OdResult OdDbGripPointsPE::gripPointsOf(const OdDbEntity* entity, OdGePoint3dArray& points) {
  if (!entity) return eNullPtr;
  const OdDbGripPointsPEPtr extension = extensionOf(entity);
  return extension.isNull() ? entity->getGripPoints(points)
                            : extension->getGripPoints(entity, points);
}

OdResult OdDbGripPointsPE::moveGripPointsOf(OdDbEntity* entity, const OdIntArray& indices,
                                            const OdGeVector3d& offset) {
  if (!entity) return eNullPtr;
  const OdDbGripPointsPEPtr extension = extensionOf(entity);
  return extension.isNull() ? entity->moveGripPointsAt(indices, offset)
                            : extension->moveGripPointsAt(entity, indices, offset);
}
