// The grips of entities whose class carries the host's grip protocol (customizable block
// references, as the module attaches it), and the grips worked by a click: a flip turns over, a
// state grip takes a state from its list.
#pragma once

#include <vector>

#include "platform/host/CJbGripPointsPE.h"

// One grip of one entity, numbered as the protocol numbers it.
struct EntityGrip {
  OdDbObjectId entity;
  unsigned index = 0;
  CJbGripPointsPE::Grip grip;
};

class EntityGrips {
 public:
  // The grips the entities show now, entity by entity.
  static std::vector<EntityGrip> of(const std::vector<OdDbObjectId>& entities);
  // Where grip `index` of the entity is now; false when the entity shows no such grip.
  static bool positionOf(const OdDbObjectId& entity, unsigned index, OdGePoint3d& position);
  // Whether a grip of this kind is clicked (flip, list of states) rather than dragged.
  static bool isClicked(int kind);

  // Drags a grip by `offset`; false when the entity refuses.
  static bool move(const OdDbObjectId& entity, unsigned index, const OdGeVector3d& offset);
  // Flips a flip grip, or sets state `state` of a state grip.
  static bool click(const EntityGrip& grip, int state);
  // The states a state grip offers and the one shown now (-1 for none).
  static OdArray<OdString> states(const EntityGrip& grip, int& current);

 private:
  static CJbGripPointsPEPtr protocolOf(const OdDbObject* object);
  static CJbGripPointsPEPtr protocolOf(const OdDbObjectId& entity);
};
