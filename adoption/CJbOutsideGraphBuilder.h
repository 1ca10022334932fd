// Builds the evaluation graph of a customizable block from the model of another program's block,
// through the authoring API, in a graph that joins no drawing yet: each parameter at its defined
// points with its property name and grips, each action on its parameter's point with its
// entities, each visibility state with the entities and elements it hides. Elements keep the
// names the other program gave them where those are free.
#pragma once

#include <map>

#include "adoption/CJbOutsideBlock.h"
#include "authoring/CJbCustBlockGraphAuthor.h"

class CJbOutsideGraphBuilder {
 public:
  explicit CJbOutsideGraphBuilder(const CJbOutsideBlock& block);

  // The graph of every converted part of the block; OdError when the authoring refuses one.
  CJbDbCustBlockGraphPtr Build();
  // The element a node became, or 0.
  int ElementOf(int node) const;
  // The element each converted node became.
  const std::map<int, int>& Elements() const { return m_elements; }

 private:
  void AddParameter(const CJbOutsideBlock::Parameter& parameter);
  void AddAction(const CJbOutsideBlock::Action& action);
  void AddStates(const CJbOutsideBlock::Parameter& parameter);
  void Rename(CJbCustBlockElement* element, const OdString& name) const;

  const CJbOutsideBlock& m_block;
  CJbDbCustBlockGraphPtr m_graph;
  CJbCustBlockGraphAuthor m_author;
  std::map<int, int> m_elements;
};
