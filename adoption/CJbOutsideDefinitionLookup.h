// The host look-up this module installs: the definition of another program's parametric block
// that a reference was made from, so that restoring a reference points it back there.
#pragma once

#include "platform/host/CJbUtils.h"

class CJbOutsideDefinitionLookup : public CJbUtils {
 protected:
  OdDbObjectId LookupDynBlockId(const OdDbObjectId& blockRefId) const override;
};
