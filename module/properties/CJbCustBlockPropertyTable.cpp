#include "module/properties/CJbCustBlockPropertyTable.h"

#include "actions/CJbCustBlockAction.h"
#include "actions/CJbCustBlockArrayAction.h"
#include "actions/CJbCustBlockFlipAction.h"
#include "actions/CJbCustBlockLookupAction.h"
#include "actions/CJbCustBlockMoveAction.h"
#include "actions/CJbCustBlockPolarStretchAction.h"
#include "actions/CJbCustBlockRotateAction.h"
#include "actions/CJbCustBlockScaleAction.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "core/CJbCustBlockProxyElement.h"
#include "parameters/CJbCustBlock2PointParameter.h"
#include "parameters/CJbCustBlockAlignmentParameter.h"
#include "parameters/CJbCustBlockBasePointParameter.h"
#include "parameters/CJbCustBlockFlipParameter.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockLookupParameter.h"
#include "parameters/CJbCustBlockPointParameter.h"
#include "parameters/CJbCustBlockPolarParameter.h"
#include "parameters/CJbCustBlockRotationParameter.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"
#include "parameters/CJbCustBlockXYParameter.h"
#include "parameters/grips/CJbCustBlockAlignmentGrip.h"
#include "parameters/grips/CJbCustBlockBaseGrip.h"
#include "parameters/grips/CJbCustBlockFlipGrip.h"
#include "parameters/grips/CJbCustBlockGrip.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"
#include "parameters/grips/CJbCustBlockLookupGrip.h"
#include "parameters/grips/CJbCustBlockPolarGrip.h"
#include "parameters/grips/CJbCustBlockRotationGrip.h"
#include "parameters/grips/CJbCustBlockVisibilityGrip.h"
#include "parameters/grips/CJbCustBlockXYGrip.h"

namespace {
using Properties = OdArray<CJbCustBlockProperty>;
using Element = CJbCustBlockElement;
using Parameter = CJbCustBlockParameter;

OdResBufPtr boolean(bool value) {
  return OdResBuf::newRb(OdResBuf::kDxfBool, value);
}
OdResBufPtr integer(int value) {
  return OdResBuf::newRb(OdResBuf::kRtInt32, value);
}
OdResBufPtr point(const OdGePoint3d& value) {
  return OdResBuf::newRb(OdResBuf::kRtPoint3d, value);
}

Properties with(Properties base, std::initializer_list<CJbCustBlockProperty> more) {
  for (const CJbCustBlockProperty& property : more)
    base.append(property);
  return base;
}

// A yes/no property read and written through a pair of accessors; read-only without a setter.
template <class T>
CJbCustBlockProperty flag(const char* name, bool (T::*get)() const,
                          void (T::*set)(bool) = nullptr) {
  std::function<bool(T&, const OdResBuf&)> setter;
  if (set) {
    setter = [set](T& object, const OdResBuf& value) {
      (object.*set)(value.getBool());
      return true;
    };
  }
  return CJbCustBlockProperty::Of<T>(
      name, OdResBuf::kDxfBool, [get](const T& object) { return boolean((object.*get)()); },
      setter);
}

// A point property read and written through a pair of accessors.
template <class T>
CJbCustBlockProperty position(const char* name, OdGePoint3d (T::*get)() const,
                              void (T::*set)(const OdGePoint3d&)) {
  return CJbCustBlockProperty::Of<T>(
      name, OdResBuf::kRtPoint3d, [get](const T& object) { return point((object.*get)()); },
      [set](T& object, const OdResBuf& value) {
        (object.*set)(value.getPoint3d());
        return true;
      });
}

// A length read and written through a pair of accessors.
template <class T>
CJbCustBlockProperty distance(const char* name, double (T::*get)() const, void (T::*set)(double)) {
  return CJbCustBlockProperty::Of<T>(
      name, OdResBuf::kRtDouble,
      [get](const T& object) { return OdResBuf::newRb(OdResBuf::kRtDouble, (object.*get)()); },
      [set](T& object, const OdResBuf& value) {
        (object.*set)(value.getDouble());
        return true;
      });
}

// A read-only count or id.
template <class T, class Number>
CJbCustBlockProperty number(const char* name, Number (T::*get)() const) {
  return CJbCustBlockProperty::Of<T>(name, OdResBuf::kRtInt32, [get](const T& object) {
    return integer(static_cast<int>((object.*get)()));
  });
}

Properties elementProperties() {
  return {
      CJbCustBlockProperty::Of<Element>(
          "Name", OdResBuf::kRtString,
          [](const Element& e) { return OdResBuf::newRb(OdResBuf::kRtString, e.GetName()); },
          [](Element& e, const OdResBuf& v) {
            // Names are unique within a graph.
            if (!Element::ValidateName(v.getString(), e.GetGraph(), &e)) return false;
            e.SetName(v.getString());
            return true;
          }),
      flag<Element>("Visible", &Element::IsVisible, &Element::SetVisible),
      number<Element>("Id", &Element::GetElementId),
  };
}

Properties proxyProperties() {
  return with(elementProperties(), {CJbCustBlockProperty::Of<CJbCustBlockProxyElement>(
                                       "Class", OdResBuf::kRtString, [](const auto& p) {
                                         return OdResBuf::newRb(OdResBuf::kRtString,
                                                                p.GetOriginalClassName());
                                       })});
}

Properties parameterProperties() {
  return with(elementProperties(),
              {
                  flag<Parameter>("Chain Actions", &Parameter::IsChain, &Parameter::SetChain),
                  flag<Parameter>("Show Properties", &Parameter::IsPropertyVisible,
                                  &Parameter::SetPropertyVisible),
                  number<Parameter>("Points", &Parameter::GetPointCount),
              });
}

// Value `index` of a parameter, changed through the parameter's own snapping and checks.
CJbCustBlockProperty valueProperty(const char* name, int valueType, unsigned index) {
  return CJbCustBlockProperty::Of<Parameter>(
      name, valueType, [index](const Parameter& p) { return p.GetValue(index); },
      [index](Parameter& p, const OdResBuf& v) {
        const OdResBufPtr value = OdResBuf::newRb(v.restype());
        value->copyFrom(&v);
        return p.SetValue(index, value);
      });
}

Properties twoPointProperties() {
  auto end = [](const char* name, unsigned index) {
    return CJbCustBlockProperty::Of<Parameter>(
        name, OdResBuf::kRtPoint3d,
        [index](const Parameter& p) { return point(p.GetCurrentPosition(index)); });
  };
  return with(parameterProperties(), {end("Start Point", 0), end("End Point", 1)});
}

Properties actionProperties() {
  using Action = CJbCustBlockAction;
  return with(
      elementProperties(),
      {
          number<Action>("Parameter", &Action::GetParameter),
          CJbCustBlockProperty::Of<Action>(
              "Parameter Point", OdResBuf::kRtInt32,
              [](const Action& a) { return integer(static_cast<int>(a.GetParameterPointIndex())); },
              [](Action& a, const OdResBuf& v) {
                if (a.IsParameterPointIndexReadOnly() || v.getInt32() < 0) return false;
                a.SetParameterPointIndex(static_cast<unsigned>(v.getInt32()));
                return true;
              }),
          number<Action>("Selection Sets", &Action::GetRequiredSelectionSetCount),
      });
}

Properties gripProperties() {
  using Grip = CJbCustBlockGrip;
  return with(elementProperties(),
              {
                  position<Grip>("Position", &Grip::GetDisplayPosition, &Grip::SetDisplayPosition),
                  position<Grip>("Defined Position", &Grip::GetDefindedPosition,
                                 &Grip::SetDefindedPosition),
                  flag<Grip>("Insertion Cycling", &Grip::IsInsertionPointCyclingEnabled,
                             &Grip::SetInsertionPointCyclingEnabled),
              });
}

// The state a list-like grip asks its parameter for.
template <class StateGrip>
Properties stateGripProperties() {
  return with(gripProperties(),
              {CJbCustBlockProperty::Of<StateGrip>(
                  "State", OdResBuf::kRtInt32,
                  [](const StateGrip& g) { return integer(static_cast<int>(g.GetState())); },
                  [](StateGrip& g, const OdResBuf& v) {
                    if (v.getInt32() < 0) return false;
                    g.SetState(v.getInt32());
                    return true;
                  })});
}

template <class T>
CJbCustBlockPropertyTable::Entry entry(Properties properties) {
  return {&T::desc, std::move(properties)};
}
}  // namespace

std::vector<CJbCustBlockPropertyTable::Entry> CJbCustBlockPropertyTable::Entries() {
  using Flip = CJbCustBlockFlipGrip;
  using Lookup = CJbCustBlockLookupParameter;
  using Visibility = CJbCustBlockVisibilityParameter;
  using Array = CJbCustBlockArrayAction;
  const auto real = OdResBuf::kRtDouble;
  const auto angle = OdResBuf::kRtAngle;
  return {
      entry<CJbCustBlockElement>(elementProperties()),
      entry<CJbCustBlockProxyElement>(proxyProperties()),
      entry<CJbCustBlockParameter>(parameterProperties()),
      entry<CJbCustBlock2PointParameter>(twoPointProperties()),
      entry<CJbCustBlockAction>(actionProperties()),
      entry<CJbCustBlockGrip>(gripProperties()),
      entry<CJbCustBlockPointParameter>(
          with(parameterProperties(), {valueProperty("Position", OdResBuf::kRtPoint3d, 0)})),
      entry<CJbCustBlockLinearParameter>(
          with(twoPointProperties(), {valueProperty("Distance", real, 0)})),
      entry<CJbCustBlockRotationParameter>(
          with(parameterProperties(), {valueProperty("Angle", angle, 0)})),
      entry<CJbCustBlockPolarParameter>(
          with(twoPointProperties(),
               {valueProperty("Distance", real, 0), valueProperty("Angle", angle, 1)})),
      entry<CJbCustBlockXYParameter>(
          with(parameterProperties(),
               {valueProperty("X Distance", real, 0), valueProperty("Y Distance", real, 1)})),
      entry<CJbCustBlockFlipParameter>(
          with(twoPointProperties(), {valueProperty("Flipped", OdResBuf::kRtInt32, 0)})),
      entry<Visibility>(with(parameterProperties(),
                             {
                                 valueProperty("State", OdResBuf::kRtInt32, 0),
                                 number<Visibility>("States", &Visibility::GetStateCount),
                             })),
      entry<Lookup>(with(parameterProperties(),
                         {
                             valueProperty("Row", OdResBuf::kRtInt32, 0),
                             number<Lookup>("Rows", &Lookup::GetStateCount),
                             number<Lookup>("Columns", &Lookup::GetParameterCount),
                             flag<Lookup>("Read Only", &Lookup::IsReadOnly, &Lookup::SetReadOnly),
                         })),
      entry<CJbCustBlockBasePointParameter>(
          with(parameterProperties(),
               {flag<CJbCustBlockBasePointParameter>(
                   "Relocation", &CJbCustBlockBasePointParameter::IsRelocationEnabled)})),
      entry<CJbCustBlockAlignmentParameter>(
          with(parameterProperties(),
               {flag<CJbCustBlockAlignmentParameter>(
                   "Perpendicular", &CJbCustBlockAlignmentParameter::IsPerpendicular)})),
      entry<CJbCustBlockMoveAction>(actionProperties()),
      entry<CJbCustBlockStretchAction>(actionProperties()),
      entry<CJbCustBlockScaleAction>(actionProperties()),
      entry<CJbCustBlockRotateAction>(actionProperties()),
      entry<CJbCustBlockPolarStretchAction>(actionProperties()),
      entry<Array>(
          with(actionProperties(),
               {
                   distance<Array>("Column Distance", &Array::GetColumnDistance,
                                   &Array::SetColumnDistance),
                   distance<Array>("Row Distance", &Array::GetRowDistance, &Array::SetRowDistance),
               })),
      entry<CJbCustBlockFlipAction>(actionProperties()),
      entry<CJbCustBlockLookupAction>(actionProperties()),
      entry<CJbCustBlockBaseGrip>(gripProperties()),
      entry<CJbCustBlockPolarGrip>(gripProperties()),
      entry<CJbCustBlockXYGrip>(gripProperties()),
      entry<CJbCustBlockLinearGrip>(gripProperties()),
      entry<CJbCustBlockRotationGrip>(gripProperties()),
      entry<Flip>(
          with(gripProperties(), {flag<Flip>("Flipped", &Flip::IsFlipped, &Flip::SetFlipped)})),
      entry<CJbCustBlockVisibilityGrip>(stateGripProperties<CJbCustBlockVisibilityGrip>()),
      entry<CJbCustBlockLookupGrip>(stateGripProperties<CJbCustBlockLookupGrip>()),
      entry<CJbCustBlockAlignmentGrip>(stateGripProperties<CJbCustBlockAlignmentGrip>()),
  };
}
