// The customizable blocks of one drawing: the masters, the block each anonymous instance was
// made from, the graph of any of them loaded with that block's state, and the references that
// show them in model and paper space.
#pragma once

#include <vector>

#include "core/CJbDbCustBlockGraph.h"
#include "platform/db/OdDbDatabase.h"

class CustomBlockCatalog {
 public:
  explicit CustomBlockCatalog(OdDbDatabase* database);

  OdDbDatabase* database() const { return m_database; }
  // Master blocks, by name.
  const std::vector<OdDbObjectId>& masters() const { return m_masters; }
  // The master of a block (itself for a master); null for a block that is not customizable.
  OdDbObjectId masterOf(const OdDbObjectId& block) const;
  // A private copy of the block's graph in the block's state; empty when it has none.
  CJbDbCustBlockGraphPtr graphOf(const OdDbObjectId& block) const;
  // References of customizable blocks in every layout, by handle.
  std::vector<OdDbObjectId> references() const;

 private:
  OdDbDatabase* m_database;
  std::vector<OdDbObjectId> m_masters;
};
