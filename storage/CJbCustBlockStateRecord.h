// Instance state as the storage keeps it: an extension record per block, and the instance-context
// modes the storage saves and loads state under. State uses in-memory result types; its record
// keeps them under the DXF group codes of the same kinds of value, so that drawing files can
// carry it.
#pragma once

#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "platform/db/OdDbXrecord.h"

class CJbCustBlockStateRecord {
 public:
  // Plain state; state without object ids, decomposed; everything.
  static constexpr int kPlainState = 0;
  static constexpr int kPortableState = CJbDbCustBlockGraphInstanceContext::kNoObjectIds |
                                        CJbDbCustBlockGraphInstanceContext::kComposingRequired;
  static constexpr int kFullState =
      kPortableState | CJbDbCustBlockGraphInstanceContext::kForEvaluate;

  // The state chain the record holds, in result types.
  static OdResBufPtr Read(const OdDbXrecord* record);
  // Sets the record from the chain; the chain is recoded for that and given back as it was.
  static OdResult Write(OdDbXrecord* record, OdResBuf* chain);
  // The trailing format version of a state chain, or -1 when it has none.
  static int Version(const OdResBuf* chain);
};
