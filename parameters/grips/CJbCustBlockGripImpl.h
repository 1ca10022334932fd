// The data every grip holds: the authored offset, direction and point, their instance
// counterparts, the updated point of an evaluation in progress and the cycling flag.
#pragma once

#include "core/CJbCustBlockElementImpl.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeVector3d.h"

class CJbCustBlockGripImpl : public CJbCustBlockElementImpl {
 public:
  OdGeVector3d m_definitionOffset;
  OdGeVector3d m_definitionDirection;
  OdGePoint3d m_definedPosition;
  OdGeVector3d m_currentOffset;
  OdGeVector3d m_currentDirection;
  OdGePoint3d m_currentPosition;
  OdGePoint3d m_updatedPosition;
  bool m_cyclingEnabled = true;
  // Filed after the defined position and kept as read.
  int m_reserved = 0;
};
