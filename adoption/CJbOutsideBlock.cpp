#include "adoption/CJbOutsideBlock.h"

const CJbOutsideBlock::Parameter* CJbOutsideBlock::FindParameter(int node) const {
  for (const Parameter& parameter : parameters)
    if (parameter.node == node) return &parameter;
  return nullptr;
}

OdString CJbOutsideBlock::NameOf(int node) const {
  for (const Parameter& parameter : parameters) {
    if (parameter.node == node) return parameter.name;
    for (const Grip& grip : parameter.grips)
      if (grip.node == node) return grip.name;
  }
  for (const Action& action : actions)
    if (action.node == node) return action.name;
  return OdString();
}

std::map<OdString, int> CJbOutsideBlock::UnconvertedByKind() const {
  std::map<OdString, int> counts;
  for (const Unconverted& part : unconverted)
    ++counts[part.kind];
  return counts;
}
