// Supplies what the host draws while an entity is dragged. A factory claims the entities it knows
// how to show; the host draws an unclaimed entity as it is.
#pragma once

#include "platform/base/OdArray.h"
#include "platform/db/OdDbObjectId.h"
#include "platform/rx/OdRxObject.h"

class OdDbEntity;

class CJbDraggingPreviewFactory : public OdRxObject {
  ODRX_DECLARE_MEMBERS(CJbDraggingPreviewFactory);

 public:
  // The entities to draw in place of `dragged`, in drawing order; false when the factory leaves
  // the entity to the host.
  virtual bool GetPreviewEntities(const OdDbEntity* dragged,
                                  OdArray<OdDbObjectId>& entities) const = 0;
};
using CJbDraggingPreviewFactoryPtr = OdSmartPtr<CJbDraggingPreviewFactory>;
