// The round-trip data that another application's dynamic blocks leave on a block and on its
// references. The storage strips it when it takes such a block over, and never writes it.
#pragma once

#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"

class CJbCustBlockOutsideData {
 public:
  // Strips a block held open for write: through the host's converter when there is one, which
  // opens the block itself (so `block` is let go first), else the known records and extended
  // data by hand.
  static void RemoveFromBlock(OdDbBlockTableRecordPtr& block);
  // Points a reference held open for write back at its dynamic block, when the host knows one,
  // and drops the representation record the other application keeps on it.
  static void RestoreReference(OdDbBlockReference* reference);
};
