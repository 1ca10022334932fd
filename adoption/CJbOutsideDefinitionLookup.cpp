#include "adoption/CJbOutsideDefinitionLookup.h"

#include "adoption/CJbOutsideReference.h"

OdDbObjectId CJbOutsideDefinitionLookup::LookupDynBlockId(const OdDbObjectId& blockRefId) const {
  return CJbOutsideReference::DefinitionOf(blockRefId);
}
