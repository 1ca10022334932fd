// The grips of customizable objects as a host's grip editing sees them: besides a position, each
// grip has a kind that says how a user works it (dragged, turned, clicked to flip, or a list of
// states to choose from) and the name of the element behind it.
#pragma once

#include "platform/base/OdArray.h"
#include "platform/base/OdString.h"
#include "platform/db/OdDbObjectId.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeVector3d.h"
#include "platform/rx/OdRxObject.h"

class OdDbEntity;

class CJbGripPointsPE : public OdRxObject {
  ODRX_DECLARE_MEMBERS(CJbGripPointsPE);

 public:
  // How a grip is worked; the numbers are the grip kinds' own.
  enum GripKind { kPoint = 0, kLinear = 1, kRotation = 2, kAlignment = 3, kFlip = 4, kState = 5 };
  struct Grip {
    OdGePoint3d position;  // in drawing coordinates
    int kind = kPoint;
    OdString name;
  };

  // The grips `entity` shows now, in a stable order; empty when it shows none of these.
  virtual OdArray<Grip> GetGrips(const OdDbEntity* entity) const = 0;
  // Drags grip `index` by `offset` (drawing coordinates) and brings the entity up to date. The
  // entity is given by id and must not be open: working a grip may point it at a new block.
  virtual bool MoveGrip(const OdDbObjectId& entity, unsigned index,
                        const OdGeVector3d& offset) const = 0;
  // Works a grip that is clicked rather than dragged: a flip grip turns over, a state grip takes
  // `state`. False for other grips.
  virtual bool ClickGrip(const OdDbObjectId& entity, unsigned index, int state) const = 0;
  // The names of the states state grip `index` offers, numbered as ClickGrip takes them, for a
  // host's menu; `current` is the state shown now (-1 for none). Empty for other grips.
  virtual OdArray<OdString> GetGripStates(const OdDbEntity* entity, unsigned index,
                                          int& current) const;
};
using CJbGripPointsPEPtr = OdSmartPtr<CJbGripPointsPE>;
