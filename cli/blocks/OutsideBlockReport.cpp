#include "cli/blocks/OutsideBlockReport.h"

#include <QJsonArray>
#include <algorithm>

#include "cli/blocks/CustomBlockProperty.h"

namespace {
using Parameter = CJbOutsideBlock::Parameter;
using ParameterKind = CJbOutsideBlock::ParameterKind;

QString text(const OdString& value) {
  return QString::fromUtf8(value.c_str());
}

// The parameter's kind, and the type of its property as jbcb names the types of its own blocks'
// properties.
std::pair<QString, QString> kindAndTypeOf(ParameterKind kind) {
  switch (kind) {
    case ParameterKind::kLinear:
      return {"Linear", "distance"};
    case ParameterKind::kFlip:
      return {"Flip", "flip"};
    case ParameterKind::kVisibility:
      break;
  }
  return {"Visibility", "visibility"};
}

QJsonValue valueOf(const Parameter& parameter, const CJbOutsideReference::ParameterState& state) {
  switch (parameter.kind) {
    case ParameterKind::kLinear:
      return state.points[0].distanceTo(state.points[1]);
    case ParameterKind::kFlip:
      return QString::fromStdString(CustomBlockProperty::flipText(state.flipped));
    case ParameterKind::kVisibility:
      break;
  }
  return text(state.visibilityState);
}

QJsonArray namesOf(const std::vector<CJbOutsideBlock::Grip>& grips) {
  QJsonArray names;
  for (const CJbOutsideBlock::Grip& grip : grips)
    names.append(text(grip.name));
  return names;
}

QJsonObject describeState(const CJbOutsideBlock& block, const Parameter& parameter,
                          const CJbOutsideBlock::State& state) {
  const auto shown = [&](const OdDbObjectId& entity) {
    return std::find(state.visibleEntities.begin(), state.visibleEntities.end(), entity) !=
           state.visibleEntities.end();
  };
  const int hidden = static_cast<int>(
      std::count_if(parameter.controlledEntities.begin(), parameter.controlledEntities.end(),
                    [&](const OdDbObjectId& entity) { return !shown(entity); }));
  QJsonArray elements;
  for (int node : state.visibleNodes)
    if (!block.NameOf(node).isEmpty()) elements.append(text(block.NameOf(node)));
  return {{"parameter", text(parameter.name)},
          {"name", text(state.name)},
          {"hiddenEntities", hidden},
          {"shownElements", elements}};
}
}  // namespace

QJsonObject OutsideBlockReport::describe(const CJbOutsideBlock& block) {
  QJsonArray parameters, actions, states;
  const CJbOutsideReference definition;
  for (const Parameter& parameter : block.parameters) {
    QJsonValue valueSet;
    if (parameter.kind == ParameterKind::kVisibility) {
      QJsonArray names;
      for (const CJbOutsideBlock::State& state : parameter.states) {
        names.append(text(state.name));
        states.append(describeState(block, parameter, state));
      }
      valueSet = QJsonObject{{"states", names}};
    }
    const auto [kind, type] = kindAndTypeOf(parameter.kind);
    parameters.append(QJsonObject{{"name", text(parameter.name)},
                                  {"kind", kind},
                                  {"property", text(parameter.property)},
                                  {"type", type},
                                  {"description", text(parameter.description)},
                                  {"value", valueOf(parameter, definition.StateOf(parameter))},
                                  {"valueSet", valueSet},
                                  {"grips", namesOf(parameter.grips)}});
  }
  for (const CJbOutsideBlock::Action& action : block.actions)
    actions.append(
        QJsonObject{{"name", text(action.name)},
                    {"kind", action.kind == CJbOutsideBlock::ActionKind::kScale ? "Scale" : "Flip"},
                    {"parameter", text(block.NameOf(action.parameter))},
                    {"entities", static_cast<int>(action.entities.size())}});
  QJsonObject notUnderstood;
  for (const auto& [kind, count] : block.UnconvertedByKind())
    notUnderstood[text(kind)] = count;
  return {{"name", text(block.name)},
          {"outside", true},
          {"parameters", parameters},
          {"actions", actions},
          {"visibilityStates", states},
          {"notUnderstood", notUnderstood},
          {"notConverted", parts(block.unconverted)}};
}

QJsonArray OutsideBlockReport::parts(const std::vector<CJbOutsideBlock::Unconverted>& parts) {
  QJsonArray array;
  for (const CJbOutsideBlock::Unconverted& part : parts)
    array.append(QJsonObject{
        {"kind", text(part.kind)}, {"name", text(part.name)}, {"reason", text(part.reason)}});
  return array;
}

QJsonObject OutsideBlockReport::values(const CJbOutsideBlock& block,
                                       const CJbOutsideReference& reference) {
  QJsonObject values;
  for (const Parameter& parameter : block.parameters)
    values[text(parameter.property)] = valueOf(parameter, reference.StateOf(parameter));
  return values;
}

void OutsideBlockReport::writeText(const QJsonObject& block, const std::string& indent,
                                   std::ostream& out) {
  for (const QJsonValue& parameter : block["parameters"].toArray()) {
    out << indent << parameter["property"].toString().toStdString() << " ("
        << parameter["type"].toString().toStdString() << " of "
        << parameter["name"].toString().toStdString() << ") = " << valueText(parameter["value"]);
    const QJsonArray states = parameter["valueSet"].toObject()["states"].toArray();
    if (!states.isEmpty()) out << "  states";
    for (const QJsonValue& state : states)
      out << " " << state.toString().toStdString();
    const QJsonArray grips = parameter["grips"].toArray();
    if (!grips.isEmpty()) out << "  grips";
    for (int i = 0; i < grips.size(); ++i)
      out << (i ? ", " : " ") << grips[i].toString().toStdString();
    out << "\n";
  }
  for (const QJsonValue& action : block["actions"].toArray())
    out << indent << "action " << action["name"].toString().toStdString() << " ("
        << action["kind"].toString().toStdString() << ") follows "
        << action["parameter"].toString().toStdString() << ", " << action["entities"].toInt()
        << " entities\n";
  for (const QJsonValue& state : block["visibilityStates"].toArray()) {
    out << indent << "state " << state["name"].toString().toStdString() << " of "
        << state["parameter"].toString().toStdString() << " hides "
        << state["hiddenEntities"].toInt() << " entities";
    const QJsonArray shown = state["shownElements"].toArray();
    if (!shown.isEmpty()) out << ", shows";
    for (const QJsonValue& element : shown)
      out << " " << element.toString().toStdString();
    out << "\n";
  }
  const QJsonObject notUnderstood = block["notUnderstood"].toObject();
  if (!notUnderstood.isEmpty()) {
    out << indent << "not understood:";
    for (auto it = notUnderstood.begin(); it != notUnderstood.end(); ++it)
      out << " " << it.value().toInt() << " " << it.key().toStdString();
    out << "\n";
  }
}

std::string OutsideBlockReport::valueText(const QJsonValue& value) {
  if (value.isDouble()) return QString::number(value.toDouble(), 'g', 12).toStdString();
  return value.toString().toStdString();
}
