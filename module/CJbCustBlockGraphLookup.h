// Finds the evaluation graph that belongs to a block definition, for the parts of the module that
// start from what a user points at: a block reference or a block name.
#pragma once

#include "platform/base/OdString.h"
#include "platform/db/OdDbObjectId.h"

class OdDbDatabase;

class CJbCustBlockGraphLookup {
 public:
  // The graph of the block, or of its master for an instance block; null when the block is not
  // customizable.
  static OdDbObjectId FindGraph(const OdDbObjectId& blockId);
  // The block table record of that name; null when the drawing has none.
  static OdDbObjectId FindBlock(OdDbDatabase* database, const OdString& blockName);
};
