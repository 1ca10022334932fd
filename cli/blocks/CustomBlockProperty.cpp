#include "cli/blocks/CustomBlockProperty.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <algorithm>
#include <limits>

#include "authoring/CJbCustBlockValueText.h"
#include "parameters/CJbCustBlockLookupParameter.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"

namespace {
using ValueText = CJbCustBlockValueText;
constexpr double kTolerance = 1e-9;

std::string number(double value) {
  return ValueText::FormatNumber(value).str();
}

bool parseNumber(const std::string& text, double& value) {
  return ValueText::ParseNumber(text.c_str(), value);
}

// Whether `value` lies from `minimum` to `maximum`; angle ranges may wrap through zero.
bool inRange(double value, double minimum, double maximum, bool angle) {
  if (!angle || minimum <= maximum)
    return value >= minimum - kTolerance && value <= maximum + kTolerance;
  return value >= minimum - kTolerance || value <= maximum + kTolerance;
}
}  // namespace

std::vector<CustomBlockProperty> CustomBlockProperty::of(const CJbDbCustBlockGraph* graph) {
  std::vector<CustomBlockProperty> properties;
  for (int id : graph->GetAllNodeIds()) {
    const CJbCustBlockParameterPtr parameter =
        CJbCustBlockParameter::cast(graph->GetNode(id).get());
    if (parameter.isNull()) continue;
    for (unsigned i = 0; i < parameter->GetValueInfoCount(); ++i) {
      const CJbCustBlockParameterValueInfo* info = parameter->GetValueInfo(i);
      if (info->IsChild() || info->GetName().isEmpty()) continue;
      properties.push_back(
          CustomBlockProperty(info->GetName().c_str(), id, i, info->GetValueType()));
    }
  }
  return properties;
}

std::string CustomBlockProperty::typeName() const {
  switch (m_type) {
    case CJbCustBlockParameterValueInfo::kDistance:
    case CJbCustBlockParameterValueInfo::kXDistance:
    case CJbCustBlockParameterValueInfo::kYDistance:
      return "distance";
    case CJbCustBlockParameterValueInfo::kAngle:
      return "angle";
    case CJbCustBlockParameterValueInfo::kMirrorState:
      return "flip";
    case CJbCustBlockParameterValueInfo::kVisibility:
      return "visibility";
    case CJbCustBlockParameterValueInfo::kTable:
      return "lookup";
    default:
      return "position";
  }
}

bool CustomBlockProperty::isLength() const {
  return m_type == CJbCustBlockParameterValueInfo::kDistance ||
         m_type == CJbCustBlockParameterValueInfo::kXDistance ||
         m_type == CJbCustBlockParameterValueInfo::kYDistance;
}

bool CustomBlockProperty::isSettable() const {
  return isLength() || isState() || m_type == CJbCustBlockParameterValueInfo::kAngle ||
         m_type == CJbCustBlockParameterValueInfo::kMirrorState;
}

bool CustomBlockProperty::isState() const {
  return m_type == CJbCustBlockParameterValueInfo::kVisibility ||
         m_type == CJbCustBlockParameterValueInfo::kTable;
}

std::vector<std::string> CustomBlockProperty::states(const CJbCustBlockParameter* parameter) const {
  std::vector<std::string> names;
  if (const auto visibility = CJbCustBlockVisibilityParameter::cast(parameter)) {
    for (unsigned i = 0; i < visibility->GetStateCount(); ++i)
      names.push_back(visibility->GetStateName(i).str());
  } else if (const auto lookup = CJbCustBlockLookupParameter::cast(parameter)) {
    for (unsigned i = 0; i < lookup->GetStateCount(); ++i)
      names.push_back(lookup->GetStateName(i).str());
  }
  return names;
}

const CJbCustBlockParameterValueInfo* CustomBlockProperty::info(
    const CJbCustBlockParameter* parameter) const {
  return parameter->GetValueInfo(m_index);
}

std::string CustomBlockProperty::text(const CJbCustBlockParameter* parameter) const {
  const OdResBufPtr value = parameter->GetValue(m_index);
  if (value.isNull()) return "";
  switch (value->restype()) {
    case OdResBuf::kRtDouble:
    case OdResBuf::kRtAngle:
      return number(m_type == CJbCustBlockParameterValueInfo::kAngle
                        ? ValueText::WithinTurn(ValueText::ToDegrees(value->getDouble()))
                        : value->getDouble());
    case OdResBuf::kRtInt32: {
      const int state = value->getInt32();
      if (m_type == CJbCustBlockParameterValueInfo::kMirrorState)
        return state ? "flipped" : "not-flipped";
      const std::vector<std::string> names = states(parameter);
      if (state >= 0 && static_cast<std::size_t>(state) < names.size()) return names[state];
      if (const auto lookup = CJbCustBlockLookupParameter::cast(parameter))
        return lookup->GetUnmatchedStateName().str();
      return std::to_string(state);
    }
    case OdResBuf::kRtPoint3d:
      return ValueText::Format(value.get()).str();
    default:
      return value->getString().c_str();
  }
}

QJsonValue CustomBlockProperty::json(const CJbCustBlockParameter* parameter) const {
  const std::string shown = text(parameter);
  if (isLength() || m_type == CJbCustBlockParameterValueInfo::kAngle) {
    double value = 0;
    if (parseNumber(shown, value)) return value;
  }
  return QString::fromStdString(shown);
}

QJsonValue CustomBlockProperty::valueSetJson(const CJbCustBlockParameter* parameter) const {
  if (isState()) {
    QJsonArray names;
    for (const std::string& name : states(parameter))
      names.append(QString::fromStdString(name));
    return QJsonObject{{"states", names}};
  }
  const CJbCustBlockParameterValueInfo* set = info(parameter);
  if (!set || !set->UseValueSet() || set->GetLimitType() == CJbCustBlockParameterValueInfo::kNone)
    return QJsonValue();
  const bool angle = m_type == CJbCustBlockParameterValueInfo::kAngle;
  auto shown = [angle](double value) { return angle ? ValueText::ToDegrees(value) : value; };
  QJsonObject result;
  OdArray<double> list;
  if (set->GetList(list)) {
    QJsonArray values;
    for (double value : list)
      values.append(shown(value));
    result["list"] = values;
    return result;
  }
  double value = 0;
  if (set->GetMimimum(value)) result["minimum"] = shown(value);
  if (set->GetMaximum(value)) result["maximum"] = shown(value);
  if (set->GetIncrement(value)) result["increment"] = shown(value);
  return result;
}

std::string CustomBlockProperty::allowed(const CJbCustBlockParameter* parameter) const {
  if (m_type == CJbCustBlockParameterValueInfo::kMirrorState) return "flipped or not-flipped";
  if (!isSettable()) return "nothing: " + typeName() + " properties cannot be set";
  if (isState()) {
    std::string names;
    for (const std::string& name : states(parameter))
      names += (names.empty() ? "" : ", ") + name;
    return "one of the states " + names;
  }
  const bool angle = m_type == CJbCustBlockParameterValueInfo::kAngle;
  std::string kind = angle ? "an angle in degrees" : "a length";
  const CJbCustBlockParameterValueInfo* set = info(parameter);
  if (!set || set->GetLimitType() == CJbCustBlockParameterValueInfo::kNone)
    return kind + (angle ? "" : " of 0 or more");
  auto shown = [angle](double value) {
    return number(angle ? ValueText::ToDegrees(value) : value);
  };
  OdArray<double> list;
  if (set->GetList(list)) {
    std::string values;
    for (double value : list)
      values += (values.empty() ? "" : ", ") + shown(value);
    return kind + " from the list " + values;
  }
  double minimum = 0, maximum = 0, increment = 0;
  set->GetMimimum(minimum);
  kind += " from " + shown(minimum);
  if (set->GetMaximum(maximum)) kind += " to " + shown(maximum);
  if (set->GetIncrement(increment)) kind += " in steps of " + shown(increment);
  return kind;
}

bool CustomBlockProperty::parse(const CJbCustBlockParameter* parameter, const std::string& text,
                                OdResBufPtr& value, std::string& error) const {
  const std::string expected = m_name + " takes " + allowed(parameter) + ", not \"" + text + "\"";
  if (!isSettable()) {
    error = m_name + " takes " + allowed(parameter);
    return false;
  }
  if (m_type == CJbCustBlockParameterValueInfo::kMirrorState) {
    if (text != "flipped" && text != "not-flipped") {
      error = expected;
      return false;
    }
    value = OdResBuf::newRb(OdResBuf::kRtInt32, text == "flipped" ? 1 : 0);
    return true;
  }
  if (isState()) {
    const std::vector<std::string> names = states(parameter);
    // The exact name first; state names are also unique ignoring case, so "open" finds "Open".
    auto found = std::find(names.begin(), names.end(), text);
    if (found == names.end())
      found = std::find_if(names.begin(), names.end(), [&](const std::string& name) {
        return OdString(name.c_str()).iEquals(OdString(text.c_str()));
      });
    if (found == names.end()) {
      error = expected;
      return false;
    }
    value = OdResBuf::newRb(OdResBuf::kRtInt32, static_cast<int>(found - names.begin()));
    return true;
  }
  double number = 0;
  if (!parseNumber(text, number)) {
    error = expected;
    return false;
  }
  const bool angle = m_type == CJbCustBlockParameterValueInfo::kAngle;
  if (angle) number = ValueText::ToRadians(ValueText::WithinTurn(number));
  if (!angle && number < 0) {
    error = expected;
    return false;
  }
  const CJbCustBlockParameterValueInfo* set = info(parameter);
  if (set && set->GetLimitType() != CJbCustBlockParameterValueInfo::kNone) {
    OdArray<double> list;
    double minimum = 0, maximum = 0;
    if (set->GetList(list) && !list.isEmpty()) {
      minimum = *std::min_element(list.begin(), list.end());
      maximum = *std::max_element(list.begin(), list.end());
    } else {
      set->GetMimimum(minimum);
      if (!set->GetMaximum(maximum)) maximum = std::numeric_limits<double>::infinity();
    }
    if (!inRange(number, minimum, maximum, angle)) {
      error = expected;
      return false;
    }
  }
  value = OdResBuf::newRb(angle ? OdResBuf::kRtAngle : OdResBuf::kRtDouble, number);
  return true;
}
