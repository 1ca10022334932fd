// One drag of one grip. Each step moves the grip to the cursor as a real edit of the entity (the
// module snaps the value to what its author allows and reshapes the block), so the preview shows
// exactly what a release keeps; cancelling drags the grip back to where it started.
#pragma once

#include "studio/document/EntityGrips.h"

class GripDrag {
 public:
  explicit GripDrag(const EntityGrip& grip);

  const EntityGrip& grip() const { return m_grip; }
  const OdGePoint3d& start() const { return m_start; }
  // Where the grip is after the last step: the cursor's point as the entity took it.
  const OdGePoint3d& position() const { return m_position; }
  // How far the grip has come from its start.
  OdGeVector3d displacement() const { return m_position - m_start; }

  // Drags the grip towards `point`; false when it did not move (refused, or snapped back to
  // where it was).
  bool moveTo(const OdGePoint3d& point);
  // Drags it back to its start.
  void cancel() { moveTo(m_start); }

 private:
  EntityGrip m_grip;
  OdGePoint3d m_start;
  OdGePoint3d m_position;
};
