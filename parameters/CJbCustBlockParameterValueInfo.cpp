// The value set of one parameter value.
#include "parameters/CJbCustBlockParameterValueInfo.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "core/CJbDbCustBlockGraph.h"
#include "parameters/CJbCustBlockParameter.h"
#include "parameters/CJbCustBlockParameterValueInfoImpl.h"
#include "platform/base/OdError.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/ge/OdGeConstants.h"
#include "platform/host/CJbTranslator.h"

namespace {

double normalizeAngle(double value) {
  if (!std::isfinite(value)) return value;
  if (std::fabs(value) > 4.0 * OdGeConstants::k2Pi) value = std::fmod(value, OdGeConstants::k2Pi);
  while (value < -OdGeConstants::kTolerance)
    value += OdGeConstants::k2Pi;
  while (value - OdGeConstants::kTolerance > OdGeConstants::k2Pi)
    value -= OdGeConstants::k2Pi;
  if (std::fabs(value) <= OdGeConstants::kTolerance ||
      std::fabs(value - OdGeConstants::k2Pi) <= OdGeConstants::kTolerance)
    value = 0.0;
  return value;
}

double distance(double a, double b, bool angle) {
  if (!angle) return std::fabs(a - b);
  const double d = std::fabs(normalizeAngle(a) - normalizeAngle(b));
  return d - OdGeConstants::kTolerance > OdGeConstants::kPi ? OdGeConstants::k2Pi - d : d;
}

// An angle range runs counter-clockwise from minimum to maximum and may wrap through 0.
bool inRange(double value, double minimum, double maximum, bool angle) {
  if (angle) {
    minimum = normalizeAngle(minimum);
    maximum = normalizeAngle(maximum);
    value = normalizeAngle(value);
    if (minimum + OdGeConstants::kTolerance >= maximum) maximum += OdGeConstants::k2Pi;
    if (minimum - OdGeConstants::kTolerance > value) value += OdGeConstants::k2Pi;
  }
  return value + OdGeConstants::kTolerance >= minimum &&
         maximum + OdGeConstants::kTolerance >= value;
}

// Half away from zero.
int roundSteps(double quotient) {
  const double rounded = quotient >= 0.0 ? std::trunc(quotient + 0.5) : std::trunc(quotient - 0.5);
  if (!(rounded >= std::numeric_limits<int>::min() && rounded <= std::numeric_limits<int>::max()))
    throw OdError(eInvalidInput, "value set: " + std::to_string(quotient) +
                                     " steps do not fit a 32-bit step count");
  return static_cast<int>(rounded);
}
}  // namespace

CJbCustBlockParameterValueInfo::CJbCustBlockParameterValueInfo(
    ValueType type, CJbCustBlockParameterValueInfo* parent)
    : m_pImpl(new CJbCustBlockParameterValueInfoImpl) {
  m_pImpl->m_valueType = type;
  if (parent) {
    m_pImpl->m_parent = parent;
    parent->m_pImpl->m_children.append(this);
  }
}

CJbCustBlockParameterValueInfo::~CJbCustBlockParameterValueInfo() = default;

CJbCustBlockParameterValueInfo::ValueType CJbCustBlockParameterValueInfo::GetValueType() const {
  return m_pImpl->m_valueType;
}

CJbCustBlockParameterValueInfo::LimitType CJbCustBlockParameterValueInfo::GetLimitType() const {
  return m_pImpl->m_limitType;
}

OdString CJbCustBlockParameterValueInfo::GetName() const {
  const CJbCustBlockParameterValueInfo* parent = m_pImpl->m_parent;
  if (parent && m_pImpl->m_valueType == kXPosition) return parent->GetName() + " X";
  if (parent && m_pImpl->m_valueType == kYPosition) return parent->GetName() + " Y";
  return m_pImpl->m_name;
}

bool CJbCustBlockParameterValueInfo::SetName(const OdString& name, CJbCustBlockParameter*) {
  m_pImpl->m_name = name;
  return true;
}

OdString CJbCustBlockParameterValueInfo::GetBaseName() const {
  static const char* const kBaseNames[] = {"Position",   "X Position", "Y Position", "Distance",
                                           "X Distance", "Y Distance", "Angle",      "Mirror State",
                                           "Visibility", "Table"};
  const int type = m_pImpl->m_valueType;
  if (type < kPosition || type > kTable) return OdString();
  return odTranslate("value_type", kBaseNames[type]);
}

OdString CJbCustBlockParameterValueInfo::GetValueTypeName() const {
  static const char* const kTypeNames[] = {
      "Position",   "Undefined", "Undefined",    "Distance",         "X Distance",
      "Y Distance", "Angle",     "Mirror State", "Visibility State", "Value State"};
  const int type = m_pImpl->m_valueType;
  if (type < kPosition || type > kTable) return odTranslate("value_type", "Undefined");
  return odTranslate("value_type", kTypeNames[type]);
}

const OdString& CJbCustBlockParameterValueInfo::GetDescription() const {
  return m_pImpl->m_description;
}

void CJbCustBlockParameterValueInfo::SetDescription(const OdString& description) {
  m_pImpl->m_description = description;
}

const OdGePoint3d& CJbCustBlockParameterValueInfo::GetPosition() const {
  return m_pImpl->m_position;
}

void CJbCustBlockParameterValueInfo::SetPosition(const OdGePoint3d& position) {
  m_pImpl->m_position = position;
}

bool CJbCustBlockParameterValueInfo::UseValueSet() const {
  const int type = m_pImpl->m_valueType;
  return type >= kDistance && type <= kAngle;
}

bool CJbCustBlockParameterValueInfo::IsAngle() const {
  return m_pImpl->m_valueType == kAngle;
}

bool CJbCustBlockParameterValueInfo::GetMimimum(double& minimum) const {
  if (m_pImpl->m_limitType == kList) return false;
  minimum = m_pImpl->m_minimum;
  return true;
}

bool CJbCustBlockParameterValueInfo::GetMaximum(double& maximum) const {
  if (m_pImpl->m_limitType == kList || !m_pImpl->m_hasMaximum) return false;
  maximum = m_pImpl->m_maximum;
  return true;
}

bool CJbCustBlockParameterValueInfo::GetIncrement(double& increment) const {
  if (m_pImpl->m_limitType != kIncrement) return false;
  increment = m_pImpl->m_increment;
  return true;
}

bool CJbCustBlockParameterValueInfo::GetList(OdArray<double>& values) const {
  if (m_pImpl->m_limitType != kList) return false;
  values = m_pImpl->m_list;
  return true;
}

bool CJbCustBlockParameterValueInfo::DefinitionValue(CJbCustBlockParameter* parameter,
                                                     double& value) const {
  if (!parameter) return false;
  for (unsigned i = 0; i < parameter->GetValueInfoCount(); ++i) {
    if (parameter->GetValueInfo(i) != this) continue;
    const OdResBufPtr definition = parameter->GetDefinitionValue(i);
    if (definition.isNull()) return false;
    const int restype = definition->restype();
    if (restype != OdResBuf::kRtDouble && restype != OdResBuf::kRtAngle) return false;
    value = definition->getDouble();
    return std::isfinite(value);
  }
  return false;
}

void CJbCustBlockParameterValueInfo::RemoveFromList(double value) {
  OdArray<double>& list = m_pImpl->m_list;
  for (unsigned i = list.length(); i-- > 0;) {
    if (std::fabs(list[i] - value) <= OdGeConstants::kTolerance) list.removeAt(i);
  }
}

void CJbCustBlockParameterValueInfo::SetNone(CJbCustBlockParameter* parameter) {
  if (!UseValueSet()) return;
  m_pImpl->m_limitType = kNone;
  double definition = 0.0;
  if (DefinitionValue(parameter, definition)) RemoveFromList(definition);
  m_pImpl->m_increment = 0.0;
}

void CJbCustBlockParameterValueInfo::SetIncrement(double step, CJbCustBlockParameter* parameter) {
  if (!UseValueSet() || !std::isfinite(step)) return;
  m_pImpl->m_limitType = kIncrement;
  double definition = 0.0;
  if (DefinitionValue(parameter, definition)) RemoveFromList(definition);
  if (step < -OdGeConstants::kTolerance) step = -step;
  if (IsAngle() && step - OdGeConstants::kTolerance > OdGeConstants::k2Pi)
    step = OdGeConstants::k2Pi;
  m_pImpl->m_increment = step;
}

void CJbCustBlockParameterValueInfo::SetMinimum(double value, CJbCustBlockParameter* parameter) {
  if (!UseValueSet() || m_pImpl->m_limitType == kList || !std::isfinite(value)) return;
  double definition = 0.0;
  if (DefinitionValue(parameter, definition)) {
    if (!IsAngle() && value - OdGeConstants::kTolerance > definition) value = definition;
    if (IsAngle() && m_pImpl->m_hasMaximum &&
        !inRange(definition, m_pImpl->m_minimum, m_pImpl->m_maximum, true))
      value = definition;
  }
  m_pImpl->m_minimum = value;
}

void CJbCustBlockParameterValueInfo::SetMaximum(const double* value,
                                                CJbCustBlockParameter* parameter) {
  if (!UseValueSet() || m_pImpl->m_limitType == kList) return;
  if (value && !std::isfinite(*value)) return;
  m_pImpl->m_hasMaximum = value != nullptr;
  if (!value) {
    m_pImpl->m_maximum = 0.0;
    return;
  }
  double maximum = *value;
  double definition = 0.0;
  if (DefinitionValue(parameter, definition) &&
      !inRange(definition, m_pImpl->m_minimum, maximum, IsAngle()))
    maximum = definition;
  m_pImpl->m_maximum = maximum;
}

void CJbCustBlockParameterValueInfo::SetList(const OdArray<double>& values,
                                             CJbCustBlockParameter* parameter) {
  if (!UseValueSet()) return;
  std::vector<double> list;
  for (double value : values) {
    if (std::isfinite(value)) list.push_back(value);
  }
  double definition = 0.0;
  if (DefinitionValue(parameter, definition) &&
      std::none_of(list.begin(), list.end(), [&](double value) {
        return std::fabs(value - definition) <= OdGeConstants::kTolerance;
      }))
    list.push_back(definition);
  if (IsAngle()) {
    for (double& value : list)
      value = normalizeAngle(value);
  }
  std::sort(list.begin(), list.end());
  m_pImpl->m_limitType = kList;
  m_pImpl->m_list = OdArray<double>(std::move(list));
}

double CJbCustBlockParameterValueInfo::GetClosestValue(double value,
                                                       CJbCustBlockParameter* parameter) const {
  if (!UseValueSet() || !std::isfinite(value)) return value;
  const CJbCustBlockParameterValueInfoImpl& impl = *m_pImpl;
  const bool angle = IsAngle();
  if (angle) value = normalizeAngle(value);

  if (impl.m_limitType == kList) {
    double best = std::numeric_limits<double>::max();
    double closest = value;
    for (double entry : impl.m_list) {
      const double d = distance(entry, value, angle);
      if (d < best - OdGeConstants::kTolerance) {
        best = d;
        closest = entry;
      }
    }
    return closest;
  }

  const double minimum = impl.m_minimum;
  const double maximum = impl.m_maximum;
  if (impl.m_hasMaximum && !inRange(value, minimum, maximum, angle))
    return distance(maximum, value, angle) + OdGeConstants::kTolerance <
                   distance(minimum, value, angle)
               ? maximum
               : minimum;
  if (!angle && value < minimum - OdGeConstants::kTolerance) value = minimum;
  if (impl.m_limitType == kNone) return value;

  double base = 0.0;
  const double step = impl.m_increment;
  if (!DefinitionValue(parameter, base) || std::fabs(step) <= OdGeConstants::kTolerance)
    return value;
  int steps = roundSteps(distance(value, base, angle) / step);
  if (distance(base - steps * step, value, angle) <
      distance(base + steps * step, value, angle) - OdGeConstants::kTolerance)
    steps = -steps;
  double candidate = base + steps * step;
  if (impl.m_hasMaximum && !inRange(candidate, minimum, maximum, angle))
    candidate = distance(candidate, minimum, angle) <=
                        distance(candidate, maximum, angle) + OdGeConstants::kTolerance
                    ? minimum
                    : maximum;
  else if (!angle && candidate < minimum - OdGeConstants::kTolerance)
    candidate = minimum;
  if (distance(value, minimum, angle) <
      distance(value, candidate, angle) - OdGeConstants::kTolerance)
    candidate = minimum;
  if (impl.m_hasMaximum && distance(value, maximum, angle) <
                               distance(value, candidate, angle) - OdGeConstants::kTolerance)
    candidate = maximum;
  return angle ? normalizeAngle(candidate) : candidate;
}

bool CJbCustBlockParameterValueInfo::IsParent() const {
  return !m_pImpl->m_children.isEmpty();
}

bool CJbCustBlockParameterValueInfo::IsChild() const {
  return m_pImpl->m_parent != nullptr;
}

bool CJbCustBlockParameterValueInfo::IsStandAlone() const {
  return !IsParent() && !IsChild();
}

const CJbCustBlockParameterValueInfo* CJbCustBlockParameterValueInfo::GetParent() const {
  return m_pImpl->m_parent;
}

CJbCustBlockParameterValueInfo* CJbCustBlockParameterValueInfo::GetParentForModify() {
  return m_pImpl->m_parent;
}

const OdArray<CJbCustBlockParameterValueInfo*>& CJbCustBlockParameterValueInfo::GetChildren()
    const {
  return m_pImpl->m_children;
}

OdArray<CJbCustBlockParameterValueInfo*>& CJbCustBlockParameterValueInfo::GetChildrenForModify() {
  return m_pImpl->m_children;
}

bool CJbCustBlockParameterValueInfo::ValidateName(const OdString& name,
                                                  const CJbDbCustBlockGraph* graph,
                                                  const CJbCustBlockParameterValueInfo* self) {
  if (name.isEmpty() || !graph) return false;
  for (int id : graph->GetAllNodeIds()) {
    const CJbCustBlockParameterPtr parameter =
        CJbCustBlockParameter::cast(graph->GetNode(id).get());
    if (parameter.isNull()) continue;
    for (unsigned i = 0; i < parameter->GetValueInfoCount(); ++i) {
      const CJbCustBlockParameterValueInfo* other = parameter->GetValueInfo(i);
      if (other != self && other->GetName() == name) return false;
    }
  }
  return true;
}

namespace {
OdSmartPtr<CJbDbCustBlockGraph> openGraph(const OdDbObjectId& graphId) {
  if (graphId.isNull()) return OdSmartPtr<CJbDbCustBlockGraph>();
  return CJbDbCustBlockGraph::cast(graphId.openObject(OdDb::kForRead).get());
}
}  // namespace

bool CJbCustBlockParameterValueInfo::ValidateName(const OdString& name, const OdDbObjectId& graphId,
                                                  const CJbCustBlockParameterValueInfo* self) {
  return ValidateName(name, openGraph(graphId).get(), self);
}

OdString CJbCustBlockParameterValueInfo::GenerateName(const CJbDbCustBlockGraph* graph) const {
  const OdString base = GetBaseName();
  for (int counter = 1;; ++counter) {
    OdString candidate = base + OdString::format("%d", counter);
    if (!graph || ValidateName(candidate, graph, this)) return candidate;
  }
}

OdString CJbCustBlockParameterValueInfo::GenerateName(const OdDbObjectId& graphId) const {
  return GenerateName(openGraph(graphId).get());
}

OdResult CJbCustBlockParameterValueInfo::dwgInFields(OdDbDwgFiler* filer) {
  CJbCustBlockParameterValueInfoImpl& impl = *m_pImpl;
  try {
    const int limitType = filer->rdInt32();
    if (limitType < kNone || limitType > kList) return eDwgObjectImproperlyRead;
    impl.m_limitType = static_cast<LimitType>(limitType);
    impl.m_name = filer->rdString();
    impl.m_description = filer->rdString();
    impl.m_position = filer->rdPoint3d();
    impl.m_minimum = filer->rdDouble();
    impl.m_maximum = filer->rdDouble();
    impl.m_increment = filer->rdDouble();
    impl.m_hasMaximum = filer->rdBool();
    const int count = filer->rdInt32();
    if (count < 0) return eDwgObjectImproperlyRead;
    impl.m_list.clear();
    for (int i = 0; i < count; ++i)
      impl.m_list.append(filer->rdDouble());
  } catch (const OdError& error) {
    return error.code();
  }
  return eOk;
}

void CJbCustBlockParameterValueInfo::dwgOutFields(OdDbDwgFiler* filer) const {
  const CJbCustBlockParameterValueInfoImpl& impl = *m_pImpl;
  filer->wrInt32(impl.m_limitType);
  filer->wrString(impl.m_name);
  filer->wrString(impl.m_description);
  filer->wrPoint3d(impl.m_position);
  filer->wrDouble(impl.m_minimum);
  filer->wrDouble(impl.m_maximum);
  filer->wrDouble(impl.m_increment);
  filer->wrBool(impl.m_hasMaximum);
  filer->wrInt32(static_cast<int>(impl.m_list.length()));
  for (double value : impl.m_list)
    filer->wrDouble(value);
}

OdResult CJbCustBlockParameterValueInfo::dxfInFields(OdDbDxfFiler*) {
  return eOk;
}

void CJbCustBlockParameterValueInfo::dxfOutFields(OdDbDxfFiler*) const {}
