#include "module/properties/CJbCustBlockPropertyTable.h"

#include "actions/CJbCustBlockAction.h"
#include "actions/CJbCustBlockMoveAction.h"
#include "actions/CJbCustBlockPolarStretchAction.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "core/CJbCustBlockProxyElement.h"
#include "parameters/CJbCustBlock2PointParameter.h"
#include "parameters/CJbCustBlockAlignmentParameter.h"
#include "parameters/CJbCustBlockBasePointParameter.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockPointParameter.h"
#include "parameters/CJbCustBlockPolarParameter.h"
#include "parameters/CJbCustBlockRotationParameter.h"
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
      CJbCustBlockProperty::Of<Element>(
          "Visible", OdResBuf::kDxfBool, [](const Element& e) { return boolean(e.IsVisible()); },
          [](Element& e, const OdResBuf& v) {
            e.SetVisible(v.getBool());
            return true;
          }),
      CJbCustBlockProperty::Of<Element>("Id", OdResBuf::kRtInt32,
                                        [](const Element& e) { return integer(e.GetElementId()); }),
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
  return with(
      elementProperties(),
      {
          CJbCustBlockProperty::Of<Parameter>(
              "Chain Actions", OdResBuf::kDxfBool,
              [](const Parameter& p) { return boolean(p.IsChain()); },
              [](Parameter& p, const OdResBuf& v) {
                p.SetChain(v.getBool());
                return true;
              }),
          CJbCustBlockProperty::Of<Parameter>(
              "Show Properties", OdResBuf::kDxfBool,
              [](const Parameter& p) { return boolean(p.IsPropertyVisible()); },
              [](Parameter& p, const OdResBuf& v) {
                p.SetPropertyVisible(v.getBool());
                return true;
              }),
          CJbCustBlockProperty::Of<Parameter>(
              "Points", OdResBuf::kRtInt32,
              [](const Parameter& p) { return integer(static_cast<int>(p.GetPointCount())); }),
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
  auto position = [](const char* name, unsigned index) {
    return CJbCustBlockProperty::Of<Parameter>(
        name, OdResBuf::kRtPoint3d,
        [index](const Parameter& p) { return point(p.GetCurrentPosition(index)); });
  };
  return with(parameterProperties(), {position("Start Point", 0), position("End Point", 1)});
}

Properties actionProperties() {
  using Action = CJbCustBlockAction;
  return with(
      elementProperties(),
      {
          CJbCustBlockProperty::Of<Action>(
              "Parameter", OdResBuf::kRtInt32,
              [](const Action& a) { return integer(a.GetParameter()); }),
          CJbCustBlockProperty::Of<Action>(
              "Parameter Point", OdResBuf::kRtInt32,
              [](const Action& a) { return integer(static_cast<int>(a.GetParameterPointIndex())); },
              [](Action& a, const OdResBuf& v) {
                if (a.IsParameterPointIndexReadOnly() || v.getInt32() < 0) return false;
                a.SetParameterPointIndex(static_cast<unsigned>(v.getInt32()));
                return true;
              }),
          CJbCustBlockProperty::Of<Action>("Selection Sets", OdResBuf::kRtInt32,
                                           [](const Action& a) {
                                             return integer(static_cast<int>(
                                                 a.GetRequiredSelectionSetCount()));
                                           }),
      });
}

Properties gripProperties() {
  using Grip = CJbCustBlockGrip;
  return with(elementProperties(),
              {
                  CJbCustBlockProperty::Of<Grip>(
                      "Position", OdResBuf::kRtPoint3d,
                      [](const Grip& g) { return point(g.GetDisplayPosition()); },
                      [](Grip& g, const OdResBuf& v) {
                        g.SetDisplayPosition(v.getPoint3d());
                        return true;
                      }),
                  CJbCustBlockProperty::Of<Grip>(
                      "Defined Position", OdResBuf::kRtPoint3d,
                      [](const Grip& g) { return point(g.GetDefindedPosition()); },
                      [](Grip& g, const OdResBuf& v) {
                        g.SetDefindedPosition(v.getPoint3d());
                        return true;
                      }),
                  CJbCustBlockProperty::Of<Grip>(
                      "Insertion Cycling", OdResBuf::kDxfBool,
                      [](const Grip& g) { return boolean(g.IsInsertionPointCyclingEnabled()); },
                      [](Grip& g, const OdResBuf& v) {
                        g.SetInsertionPointCyclingEnabled(v.getBool());
                        return true;
                      }),
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
      entry<CJbCustBlockBasePointParameter>(
          with(parameterProperties(),
               {CJbCustBlockProperty::Of<CJbCustBlockBasePointParameter>(
                   "Relocation", OdResBuf::kDxfBool,
                   [](const auto& p) { return boolean(p.IsRelocationEnabled()); })})),
      entry<CJbCustBlockAlignmentParameter>(with(
          parameterProperties(), {CJbCustBlockProperty::Of<CJbCustBlockAlignmentParameter>(
                                     "Perpendicular", OdResBuf::kDxfBool,
                                     [](const auto& p) { return boolean(p.IsPerpendicular()); })})),
      entry<CJbCustBlockMoveAction>(actionProperties()),
      entry<CJbCustBlockStretchAction>(actionProperties()),
      entry<CJbCustBlockPolarStretchAction>(actionProperties()),
      entry<CJbCustBlockBaseGrip>(gripProperties()),
      entry<CJbCustBlockPolarGrip>(gripProperties()),
      entry<CJbCustBlockXYGrip>(gripProperties()),
      entry<CJbCustBlockLinearGrip>(gripProperties()),
      entry<CJbCustBlockRotationGrip>(gripProperties()),
      entry<Flip>(with(gripProperties(), {CJbCustBlockProperty::Of<Flip>(
                                             "Flipped", OdResBuf::kDxfBool,
                                             [](const Flip& g) { return boolean(g.IsFlipped()); },
                                             [](Flip& g, const OdResBuf& v) {
                                               g.SetFlipped(v.getBool());
                                               return true;
                                             })})),
      entry<CJbCustBlockVisibilityGrip>(stateGripProperties<CJbCustBlockVisibilityGrip>()),
      entry<CJbCustBlockLookupGrip>(stateGripProperties<CJbCustBlockLookupGrip>()),
      entry<CJbCustBlockAlignmentGrip>(stateGripProperties<CJbCustBlockAlignmentGrip>()),
  };
}
