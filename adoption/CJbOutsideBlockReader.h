// Reads the parametric definition another program keeps on a block: the evaluation graph under
// "ACAD_ENHANCEDBLOCK" in the block's extension dictionary and the objects it owns, one per node,
// which this system keeps unknown and tag for tag. Each node is read strictly: a kind it does not
// know, or a known kind holding data it has not seen, becomes an unconverted part of the model
// that names its kind and why, so nothing is guessed.
#pragma once

#include <map>
#include <vector>

#include "adoption/CJbOutsideBlock.h"
#include "adoption/CJbOutsideRecord.h"

class CJbOutsideBlockReader {
 public:
  // The evaluation graph the block carries, or null for a block without one.
  static OdDbObjectId GraphOf(const OdDbObjectId& blockId);
  static bool IsOutsideBlock(const OdDbObjectId& blockId) { return !GraphOf(blockId).isNull(); }
  // The name the other program shows for the block: its own name, or for a definition kept under
  // an anonymous name the true name it records.
  static OdString NameOf(const OdDbObjectId& blockId);
  // What the block holds. OdError when it carries no graph or the graph's node list cannot be
  // read; a node that cannot be read is an unconverted part instead.
  static CJbOutsideBlock Read(const OdDbObjectId& blockId);

 private:
  struct Node {
    int id = 0;
    OdDbObjectId object;
    OdString kind;
  };
  // A grip as its record holds it, before it is bound to a parameter.
  struct GripRecord {
    CJbOutsideBlock::Grip grip;
    OdString kind;
    std::vector<int> expressions;  // the location components it reads
  };
  // The parameter whose output one grip-location component reads.
  struct Expression {
    int parameter = 0;
  };

  explicit CJbOutsideBlockReader(const OdDbObjectId& blockId);

  void ReadNodes(const OdDbObjectId& graphId);
  void ReadNode(const Node& node);
  void ReadTwoPointParameter(CJbOutsideRecord& record, CJbOutsideBlock::Parameter& parameter);
  void ReadLinear(CJbOutsideRecord& record, CJbOutsideBlock::Parameter& parameter);
  void ReadFlip(CJbOutsideRecord& record, CJbOutsideBlock::Parameter& parameter);
  void ReadVisibility(CJbOutsideRecord& record, CJbOutsideBlock::Parameter& parameter);
  void ReadGrip(CJbOutsideRecord& record, const Node& node, const OdString& name);
  void ReadAction(CJbOutsideRecord& record, CJbOutsideBlock::Action& action);
  void ReadExpression(CJbOutsideRecord& record, const Node& node);
  // An entity of the block named by the record; anything else fails.
  OdDbObjectId Entity(CJbOutsideRecord& record, int code) const;
  // Binds grips to the points their parameters name, and checks actions and states against
  // what was read; whatever is left over is unconverted.
  void Resolve();
  void BindGrips(CJbOutsideBlock::Parameter& parameter);
  void Unconverted(const OdString& kind, const OdString& name, const OdString& reason);

  CJbOutsideBlock m_block;
  std::map<OdDbObjectId, int> m_nodeOfObject;
  // Grip slots of each parameter read, by point index; 0 where a point has no grip.
  std::map<int, std::vector<int>> m_gripSlots;
  std::map<int, GripRecord> m_grips;
  std::map<int, Expression> m_expressions;
};
