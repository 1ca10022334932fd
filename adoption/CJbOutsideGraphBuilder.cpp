#include "adoption/CJbOutsideGraphBuilder.h"

#include <algorithm>
#include <set>

#include "actions/CJbCustBlockFlipAction.h"
#include "actions/CJbCustBlockScaleAction.h"
#include "parameters/CJbCustBlockFlipParameter.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"
#include "parameters/grips/CJbCustBlockFlipGrip.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"
#include "parameters/grips/CJbCustBlockVisibilityGrip.h"

namespace {
using ParameterKind = CJbOutsideBlock::ParameterKind;

OdArray<OdGePoint3d> pointsOf(const CJbOutsideBlock::Parameter& parameter) {
  OdArray<OdGePoint3d> points;
  for (const OdGePoint3d& point : parameter.points)
    points.append(point);
  return points;
}

OdArray<OdDbObjectId> idsOf(const std::vector<OdDbObjectId>& ids) {
  OdArray<OdDbObjectId> array;
  for (const OdDbObjectId& id : ids)
    array.append(id);
  return array;
}

CJbCustBlockGripPtr newGrip(ParameterKind kind) {
  switch (kind) {
    case ParameterKind::kLinear:
      return CJbCustBlockLinearGrip::createObject();
    case ParameterKind::kFlip:
      return CJbCustBlockFlipGrip::createObject();
    case ParameterKind::kVisibility:
      break;
  }
  return CJbCustBlockVisibilityGrip::createObject();
}
}  // namespace

CJbOutsideGraphBuilder::CJbOutsideGraphBuilder(const CJbOutsideBlock& block)
    : m_block(block), m_graph(CJbDbCustBlockGraph::createObject()), m_author(m_graph.get()) {}

CJbDbCustBlockGraphPtr CJbOutsideGraphBuilder::Build() {
  for (const CJbOutsideBlock::Parameter& parameter : m_block.parameters)
    AddParameter(parameter);
  for (const CJbOutsideBlock::Action& action : m_block.actions)
    AddAction(action);
  // States name the elements they show, so they come once every element is there.
  for (const CJbOutsideBlock::Parameter& parameter : m_block.parameters)
    if (parameter.kind == ParameterKind::kVisibility) AddStates(parameter);
  return m_graph;
}

int CJbOutsideGraphBuilder::ElementOf(int node) const {
  const auto found = m_elements.find(node);
  return found == m_elements.end() ? 0 : found->second;
}

void CJbOutsideGraphBuilder::AddParameter(const CJbOutsideBlock::Parameter& parameter) {
  CJbCustBlockParameterPtr added;
  switch (parameter.kind) {
    case ParameterKind::kLinear:
      added = m_author.AppendParameter<CJbCustBlockLinearParameter>(parameter.property,
                                                                    pointsOf(parameter));
      break;
    case ParameterKind::kFlip: {
      const CJbCustBlockFlipParameterPtr flip = m_author.AppendParameter<CJbCustBlockFlipParameter>(
          parameter.property, pointsOf(parameter));
      if (!parameter.notFlippedName.isEmpty())
        flip->SetNotFlippedStateName(parameter.notFlippedName);
      if (!parameter.flippedName.isEmpty()) flip->SetFlippedStateName(parameter.flippedName);
      added = flip;
      break;
    }
    case ParameterKind::kVisibility:
      added = m_author.AppendParameter<CJbCustBlockVisibilityParameter>(parameter.property,
                                                                        pointsOf(parameter));
      break;
  }
  Rename(added.get(), parameter.name);
  m_elements[parameter.node] = added->GetElementId();
  for (const CJbOutsideBlock::Grip& grip : parameter.grips) {
    const CJbCustBlockGripPtr bound = newGrip(parameter.kind);
    m_author.BindGrip(added.get(), grip.point, bound.get());
    bound->SetDefinitionOffset(grip.position - added->GetDefinedPosition(grip.point));
    Rename(bound.get(), grip.name);
    m_elements[grip.node] = bound->GetElementId();
  }
}

void CJbOutsideGraphBuilder::AddAction(const CJbOutsideBlock::Action& action) {
  const CJbCustBlockParameterPtr parameter =
      CJbCustBlockParameter::cast(m_graph->GetNode(ElementOf(action.parameter)).get());
  const OdArray<OdDbObjectId> entities = idsOf(action.entities);
  CJbCustBlockActionPtr added;
  // A scale follows the length between the two points, a mirror the line through them.
  if (action.kind == CJbOutsideBlock::ActionKind::kScale)
    added = m_author.AppendAction<CJbCustBlockScaleAction>(parameter.get(), 1, entities);
  else
    added = m_author.AppendAction<CJbCustBlockFlipAction>(parameter.get(), 0, entities);
  Rename(added.get(), action.name);
  m_elements[action.node] = added->GetElementId();
}

void CJbOutsideGraphBuilder::AddStates(const CJbOutsideBlock::Parameter& parameter) {
  const CJbCustBlockVisibilityParameterPtr visibility =
      CJbCustBlockVisibilityParameter::cast(m_graph->GetNode(ElementOf(parameter.node)).get());
  // Elements no state names are always shown; those some state names are hidden where it is not.
  std::set<int> named;
  for (const CJbOutsideBlock::State& state : parameter.states)
    for (int node : state.visibleNodes)
      if (ElementOf(node) != 0) named.insert(node);
  for (const CJbOutsideBlock::State& state : parameter.states) {
    OdArray<OdDbObjectId> hiddenEntities;
    for (const OdDbObjectId& entity : parameter.controlledEntities)
      if (std::find(state.visibleEntities.begin(), state.visibleEntities.end(), entity) ==
          state.visibleEntities.end())
        hiddenEntities.append(entity);
    OdArray<int> hiddenElements;
    for (int node : named)
      if (std::find(state.visibleNodes.begin(), state.visibleNodes.end(), node) ==
          state.visibleNodes.end())
        hiddenElements.append(ElementOf(node));
    visibility->AddState(state.name, hiddenEntities, hiddenElements);
  }
}

void CJbOutsideGraphBuilder::Rename(CJbCustBlockElement* element, const OdString& name) const {
  if (!name.isEmpty() && CJbCustBlockElement::ValidateName(name, m_graph.get(), element))
    element->SetName(name);
}
