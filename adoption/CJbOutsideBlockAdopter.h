// Converts one parametric block of another program into a customizable block in place: the block
// becomes a master whose graph is built from what it holds, each anonymous block the other
// program made for its references becomes an instance block whose state holds the values that
// reference records (so nothing changes on screen), and the other program's data is removed as
// the block storage removes it. A block with anything that is not converted is left as it was,
// unless a partial conversion is asked for.
#pragma once

#include <map>
#include <vector>

#include "adoption/CJbOutsideBlock.h"
#include "adoption/CJbOutsideDrawing.h"
#include "adoption/CJbOutsideReference.h"

class CJbOutsideBlockAdopter {
 public:
  struct Outcome {
    // What the block holds, as read.
    CJbOutsideBlock block;
    // Every part not converted: the block's own, then references that keep only their look.
    std::vector<CJbOutsideBlock::Unconverted> notConverted;
    // The references that now show a customizable block.
    std::vector<OdDbObjectId> references;
    bool adopted = false;
    // Why nothing was converted, when the block could not be adopted at all.
    OdString failure;
  };

  static Outcome Adopt(const CJbOutsideDrawing& drawing, const OdDbObjectId& blockId, bool partial);

 private:
  // An anonymous block the other program made, the references that show it and the state they
  // record for each parameter node.
  struct Instance {
    std::vector<OdDbObjectId> references;
    std::map<int, CJbOutsideReference::ParameterState> states;
    // Each entity of the definition and the one standing for it in this block.
    std::vector<std::pair<OdDbObjectId, OdDbObjectId>> entities;
  };

  explicit CJbOutsideBlockAdopter(const OdDbObjectId& blockId) : m_blockId(blockId) {}

  // Reads every reference's anonymous block and recorded state; a reference whose block or state
  // does not fit the definition is a part not converted.
  void PrepareInstances(const std::vector<OdDbObjectId>& references);
  Instance ReadInstance(const CJbOutsideReference& reference, const OdDbObjectId& blockId) const;
  // Builds the graph and registers the block as its master.
  void RegisterMaster();
  // A definition the other program keeps under an anonymous name (as older file versions make
  // it) takes the name that program shows, when no other block has it: the record of that name
  // is outside data, which goes.
  void TakeShownName();
  void AdoptInstance(const OdDbObjectId& blockId, const Instance& instance);
  void NotConverted(const OdDbObjectId& reference, const OdString& reason);

  OdDbObjectId m_blockId;
  Outcome m_outcome;
  std::map<int, int> m_elements;
  std::map<OdDbObjectId, Instance> m_instances;
  std::vector<OdDbObjectId> m_direct;
};
