// The typed grips of customizable block references for a host's grip editing: the grips that the
// reference's block-instance grip points show after the reference's own, each with its kind and
// element name. Drags go through those grip points; clicks (flip, state choice) edit that
// reference alone through the editor helper, and state grips name their parameter's states.
#pragma once

#include "platform/host/CJbGripPointsPE.h"

class CJbBlockRefGripPointsPEProxy : public CJbGripPointsPE {
 public:
  OdArray<Grip> GetGrips(const OdDbEntity* entity) const override;
  bool MoveGrip(const OdDbObjectId& entity, unsigned index,
                const OdGeVector3d& offset) const override;
  bool ClickGrip(const OdDbObjectId& entity, unsigned index, int state) const override;
  // The state names of a visibility or lookup grip's parameter.
  OdArray<OdString> GetGripStates(const OdDbEntity* entity, unsigned index,
                                  int& current) const override;
};
