// Attributes of a block reference follow their definitions through an evaluation: where the
// definitions stood is recorded before it, and afterwards each attribute moves as its definition
// moved and takes over the definition's visibility and position lock.
#pragma once

#include <memory>

#include "core/CJbDbCustBlockAttributeSnapshot.h"

class CJbDbCustBlockAttributeFollower {
 public:
  // The attribute definitions of the block that `blockRefId` refers to, as they stand now. Fails
  // with eNotThatKindOfClass when the object is no block reference.
  static std::unique_ptr<CJbDbCustBlockAttributeSnapshot> TakeSnapshot(
      const OdDbObjectId& blockRefId);
  // Moves the attributes of the reference as their definitions moved since `snapshot` was taken;
  // without a snapshot, puts them where their definitions are now.
  static void Follow(const OdDbObjectId& blockRefId,
                     const CJbDbCustBlockAttributeSnapshot* snapshot);
};
