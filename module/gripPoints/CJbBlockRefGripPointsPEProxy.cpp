#include "module/gripPoints/CJbBlockRefGripPointsPEProxy.h"

OdResult CJbBlockRefGripPointsPEProxy::getGripPoints(const OdDbEntity* entity,
                                                     OdGePoint3dArray& points) const {
  const OdResult own = entity->getGripPoints(points);
  if (own != eOk) return own;
  for (const CJbGripPointsPE::Grip& grip : m_instanceGrips.GetGrips(entity))
    points.append(grip.position);
  return eOk;
}

OdResult CJbBlockRefGripPointsPEProxy::moveGripPointsAt(OdDbEntity* entity,
                                                        const OdIntArray& indices,
                                                        const OdGeVector3d& offset) const {
  for (int index : indices)
    if (index != 0) return eNotApplicable;
  return entity->moveGripPointsAt(indices, offset);
}
