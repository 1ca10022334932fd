// Builds the demonstration drawing: each demo block authored as a customizable block, a row of
// its references with a caption, and each reference's edits applied as `jbcb set` applies them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "demo/DemoBlock.h"
#include "platform/db/OdDbDatabase.h"

class DemoDrawingBuilder {
 public:
  struct Placement {
    std::string block;
    OdDbObjectId reference;
    OdGePoint3d position;
    DemoBlock::Edits edits;
    // The value each edit ended with, after snapping, in edit order.
    std::vector<std::string> results;
  };

  DemoDrawingBuilder();
  ~DemoDrawingBuilder();

  // A new drawing with every block, reference and edit; OdError when an edit is refused.
  OdDbDatabasePtr build();
  const std::vector<Placement>& placements() const { return m_placements; }
  const std::vector<std::unique_ptr<DemoBlock>>& blocks() const { return m_blocks; }

 private:
  void placeRow(OdDbDatabase* database, const DemoBlock& block, const OdDbObjectId& blockId,
                double y);

  std::vector<std::unique_ptr<DemoBlock>> m_blocks;
  std::vector<Placement> m_placements;
};
