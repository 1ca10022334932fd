// The run-time classes of parameters and grips.
#include "parameters/CJbCustBlockParameterClasses.h"

#include "parameters/CJbCustBlock2PointParameter.h"
#include "parameters/CJbCustBlockAlignmentParameter.h"
#include "parameters/CJbCustBlockBasePointParameter.h"
#include "parameters/CJbCustBlockFlipParameter.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockLookupParameter.h"
#include "parameters/CJbCustBlockParameter.h"
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
using Row = CJbCustBlockKindRow;
using Family = Row::Family;
using Properties = Row::Properties;
using Property = CJbCustBlockProperty;
using Parameter = CJbCustBlockParameter;
using Grip = CJbCustBlockGrip;
constexpr int kReal = OdResBuf::kRtDouble;
constexpr int kAngle = OdResBuf::kRtAngle;
constexpr int kInteger = OdResBuf::kRtInt32;
constexpr int kPoint = OdResBuf::kRtPoint3d;

// Value `index` of a parameter, changed through the parameter's own snapping and checks.
Property value(const char* name, int valueType, unsigned index) {
  return Property::Of<Parameter>(
      name, valueType, [index](const Parameter& p) { return p.GetValue(index); },
      [index](Parameter& p, const OdResBuf& v) {
        const OdResBufPtr copy = OdResBuf::newRb(v.restype());
        copy->copyFrom(&v);
        return p.SetValue(index, copy);
      });
}

// The two ends of a two-point parameter, where they are now.
Properties ends() {
  auto end = [](const char* name, unsigned index) {
    return Property::Of<Parameter>(name, kPoint, [index](const Parameter& p) {
      return OdResBuf::newRb(kPoint, p.GetCurrentPosition(index));
    });
  };
  return {end("Start Point", 0), end("End Point", 1)};
}

Properties parameterProperties() {
  return {
      Property::Flag<Parameter>("Chain Actions", &Parameter::IsChain, &Parameter::SetChain),
      Property::Flag<Parameter>("Show Properties", &Parameter::IsPropertyVisible,
                                &Parameter::SetPropertyVisible),
      Property::Count<Parameter>("Points", &Parameter::GetPointCount),
  };
}

Properties gripProperties() {
  return {
      Property::Position<Grip>("Position", &Grip::GetDisplayPosition, &Grip::SetDisplayPosition),
      Property::Position<Grip>("Defined Position", &Grip::GetDefindedPosition,
                               &Grip::SetDefindedPosition),
      Property::Flag<Grip>("Insertion Cycling", &Grip::IsInsertionPointCyclingEnabled,
                           &Grip::SetInsertionPointCyclingEnabled),
  };
}

// The state a list-like grip asks its parameter for.
template <class StateGrip>
Properties stateGripProperties() {
  return {Property::Of<StateGrip>(
      "State", kInteger,
      [](const StateGrip& g) { return OdResBuf::newRb(kInteger, static_cast<int>(g.GetState())); },
      [](StateGrip& g, const OdResBuf& v) {
        if (v.getInt32() < 0) return false;
        g.SetState(v.getInt32());
        return true;
      })};
}

Properties visibilityProperties() {
  using Visibility = CJbCustBlockVisibilityParameter;
  return {value("State", kInteger, 0),
          Property::Count<Visibility>("States", &Visibility::GetStateCount)};
}

Properties lookupProperties() {
  using Lookup = CJbCustBlockLookupParameter;
  return {
      value("Row", kInteger, 0),
      Property::Count<Lookup>("Rows", &Lookup::GetStateCount),
      Property::Count<Lookup>("Columns", &Lookup::GetParameterCount),
      Property::Flag<Lookup>("Read Only", &Lookup::IsReadOnly, &Lookup::SetReadOnly),
  };
}

Properties flipProperties() {
  Properties properties = ends();
  properties.append(value("Flipped", kInteger, 0));
  return properties;
}

Properties flipGripProperties() {
  using Flip = CJbCustBlockFlipGrip;
  return {Property::Flag<Flip>("Flipped", &Flip::IsFlipped, &Flip::SetFlipped)};
}
}  // namespace

const CJbCustBlockKindTable& CJbCustBlockParameterClasses::Table() {
  using BasePoint = CJbCustBlockBasePointParameter;
  using Alignment = CJbCustBlockAlignmentParameter;
  static const CJbCustBlockKindTable table = {
      Row::Base<Parameter>(Family::kParameter, &parameterProperties),
      Row::Base<CJbCustBlock2PointParameter>(Family::kParameter, &ends),
      Row::Base<Grip>(Family::kGrip, &gripProperties),
      Row::Parameter<CJbCustBlockPointParameter>(
          "Point", "POINT", kPoint, &CJbCustBlockBaseGrip::desc,
          [] { return Properties{value("Position", kPoint, 0)}; }),
      Row::Parameter<CJbCustBlockLinearParameter>(
          "Linear", "LINEAR", kReal, &CJbCustBlockLinearGrip::desc,
          [] { return Properties{value("Distance", kReal, 0)}; }),
      Row::Parameter<CJbCustBlockRotationParameter>(
          "Rotation", "ROTATION", kAngle, &CJbCustBlockRotationGrip::desc,
          [] { return Properties{value("Angle", kAngle, 0)}; }),
      Row::Parameter<CJbCustBlockPolarParameter>(
          "Polar", "POLAR", kReal, &CJbCustBlockPolarGrip::desc,
          [] {
            return Properties{value("Distance", kReal, 0), value("Angle", kAngle, 1)};
          }),
      Row::Parameter<CJbCustBlockXYParameter>(
          "XY", "XY", kReal, &CJbCustBlockXYGrip::desc,
          [] {
            return Properties{value("X Distance", kReal, 0), value("Y Distance", kReal, 1)};
          }),
      Row::Parameter<CJbCustBlockFlipParameter>("Flip", "FLIP", kInteger,
                                                &CJbCustBlockFlipGrip::desc, &flipProperties),
      Row::Parameter<CJbCustBlockVisibilityParameter>("Visibility", "VISIBILITY", kInteger,
                                                      &CJbCustBlockVisibilityGrip::desc,
                                                      &visibilityProperties),
      Row::Parameter<CJbCustBlockLookupParameter>("Lookup", "LOOKUP", kInteger,
                                                  &CJbCustBlockLookupGrip::desc, &lookupProperties),
      Row::Parameter<BasePoint>("Base Point", "BASEPOINT", 0, &CJbCustBlockBaseGrip::desc,
                                [] {
                                  return Properties{Property::Flag<BasePoint>(
                                      "Relocation", &BasePoint::IsRelocationEnabled)};
                                }),
      Row::Parameter<Alignment>("Alignment", "ALIGNMENT", 0, &CJbCustBlockAlignmentGrip::desc,
                                [] {
                                  return Properties{Property::Flag<Alignment>(
                                      "Perpendicular", &Alignment::IsPerpendicular)};
                                }),
      Row::Grip<CJbCustBlockBaseGrip>("Base Grip", "BASE"),
      Row::Grip<CJbCustBlockPolarGrip>("Polar Grip", "POLAR"),
      Row::Grip<CJbCustBlockXYGrip>("XY Grip", "XY"),
      Row::Grip<CJbCustBlockLinearGrip>("Linear Grip", "LINEAR"),
      Row::Grip<CJbCustBlockRotationGrip>("Rotation Grip", "ROTATION"),
      Row::Grip<CJbCustBlockFlipGrip>("Mirror Grip", "FLIP", &flipGripProperties),
      Row::Grip<CJbCustBlockVisibilityGrip>("Visibility Grip", "VISIBILITY",
                                            &stateGripProperties<CJbCustBlockVisibilityGrip>),
      Row::Grip<CJbCustBlockLookupGrip>("Table Grip", "LOOKUP",
                                        &stateGripProperties<CJbCustBlockLookupGrip>),
      Row::Grip<CJbCustBlockAlignmentGrip>("Alignment Grip", "ALIGNMENT",
                                           &stateGripProperties<CJbCustBlockAlignmentGrip>),
  };
  return table;
}

void CJbCustBlockParameterClasses::RxInit() {
  Table().rxInit();
}

void CJbCustBlockParameterClasses::RxUninit() {
  Table().rxUninit();
}
