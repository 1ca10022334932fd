#include "studio/document/GripDrag.h"

GripDrag::GripDrag(const EntityGrip& grip)
    : m_grip(grip), m_start(grip.grip.position), m_position(grip.grip.position) {}

bool GripDrag::moveTo(const OdGePoint3d& point) {
  // Offsets count from where the grip is now: a snapped step may have left it short of the
  // cursor, and the next step starts from there.
  const OdGeVector3d offset = point - m_position;
  if (offset.isZeroLength() || !EntityGrips::move(m_grip.entity, m_grip.index, offset))
    return false;
  OdGePoint3d moved;
  if (!EntityGrips::positionOf(m_grip.entity, m_grip.index, moved)) return false;
  const bool changed = !moved.isEqualTo(m_position);
  m_position = moved;
  return changed;
}
