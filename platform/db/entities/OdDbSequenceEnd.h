// The marker that ends the vertex list of an old-style polyline; it carries only entity
// properties.
#pragma once

#include "platform/db/OdDbEntity.h"

class OdDbSequenceEnd : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbSequenceEnd);

 public:
  OdDbSequenceEnd() = default;

  // Nothing to move: the marker follows its polyline.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
};
using OdDbSequenceEndPtr = OdSmartPtr<OdDbSequenceEnd>;
