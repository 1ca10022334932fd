// What another program recorded on one reference of its parametric block: the definition the
// reference was made from, and per node of that definition the state the reference shows (the
// points of a parameter, a flip state, a visibility state). The other program keeps it in the
// reference's extension dictionary under "AcDbBlockRepresentation"; the anonymous block it made
// for the reference names the definition too.
#pragma once

#include <map>
#include <vector>

#include "adoption/CJbOutsideBlock.h"
#include "platform/resbuf/OdResBuf.h"

class CJbOutsideReference {
 public:
  // The state of one parameter as the reference shows it.
  struct ParameterState {
    std::vector<OdGePoint3d> points;
    bool flipped = false;
    OdString visibilityState;
  };

  // The outside definition the reference was made from: the one its record names, else the one
  // its anonymous block names, else its block when that carries a definition; null otherwise.
  static OdDbObjectId DefinitionOf(const OdDbObjectId& referenceId);
  // The key of the reference's record in its extension dictionary.
  static const char* RecordKey();
  static CJbOutsideReference Read(const OdDbObjectId& referenceId);

  OdDbObjectId ReferenceId() const { return m_referenceId; }
  OdDbObjectId DefinitionId() const { return m_definitionId; }
  // Whether the reference records a state for the node.
  bool Records(int node) const { return m_states.count(node) > 0; }
  // The parameter's state as recorded, or as the definition has it when nothing is recorded;
  // OdError naming the record when the recorded state cannot be read.
  ParameterState StateOf(const CJbOutsideBlock::Parameter& parameter) const;

 private:
  OdDbObjectId m_referenceId;
  OdDbObjectId m_definitionId;
  // The record of each node's state, by node.
  std::map<int, OdDbObjectId> m_states;
};
