// Authoring the elements of one evaluation graph, the one way every host makes and changes a
// definition: parameters placed at their points with property names, value sets and grips bound
// to their points; actions bound to the parameter point that drives them, with their selection
// and stretch frames; rows of lookup tables. It works on a graph open for write, in a drawing or
// not. Kinds or partners that do not fit fail with OdError and leave the graph as it was.
#pragma once

#include <optional>
#include <type_traits>

#include "actions/CJbCustBlockAction.h"
#include "core/CJbDbCustBlockGraph.h"
#include "parameters/CJbCustBlockLookupParameter.h"
#include "parameters/CJbCustBlockParameter.h"
#include "parameters/grips/CJbCustBlockGrip.h"

class CJbCustBlockGraphAuthor {
 public:
  // The values a parameter's value may take: steps of an increment (none when 0) between
  // optional limits, or one of a list.
  struct ValueSet {
    ValueSet(double increment, std::optional<double> minimum = std::nullopt,
             std::optional<double> maximum = std::nullopt)
        : increment(increment), minimum(minimum), maximum(maximum) {}
    explicit ValueSet(const OdArray<double>& list) : list(list) {}

    double increment = 0;
    std::optional<double> minimum;
    std::optional<double> maximum;
    OdArray<double> list;
  };

  explicit CJbCustBlockGraphAuthor(CJbDbCustBlockGraph* graph) : m_graph(graph) {}
  CJbDbCustBlockGraph* Graph() const { return m_graph; }

  // A parameter of a registered kind placed at `points` (where given) whose first value is the
  // property `property` (none when empty), with a grip of the kind its editing utilities name
  // bound to each of its points; eNotApplicable for a kind that is no parameter.
  CJbCustBlockParameterPtr AppendParameter(const OdRxClass* kind,
                                           const OdString& property = OdString(),
                                           const OdArray<OdGePoint3d>& points = {});
  // A parameter placed at `points` whose first value is the property `property` (none when
  // empty); the points listed in `grippedPoints` get a grip of kind Grip.
  template <class Parameter, class Grip = void>
  OdSmartPtr<Parameter> AppendParameter(const OdString& property,
                                        const OdArray<OdGePoint3d>& points,
                                        const OdArray<unsigned>& grippedPoints = {}) {
    OdSmartPtr<Parameter> parameter(new Parameter);
    Place(parameter.get(), property, points);
    if constexpr (!std::is_void_v<Grip>) {
      for (unsigned index : grippedPoints)
        BindGrip(parameter.get(), index, OdSmartPtr<Grip>(new Grip).get());
    }
    return parameter;
  }
  // Binds the grip to point `index` of the parameter: the grip joins the graph (when it is not
  // in it yet), the point names it, it feeds the parameter and starts where the point is defined.
  void BindGrip(CJbCustBlockParameter* parameter, unsigned index, CJbCustBlockGrip* grip);

  // An action of a registered kind driven by the parameter; eNotApplicable for a kind that is no
  // action, eInvalidInput when the action cannot be driven by that parameter.
  CJbCustBlockActionPtr AppendAction(const OdRxClass* kind, const CJbCustBlockParameter* parameter);
  // An action driven by point `pointIndex` of the parameter, transforming `entities` (set 0).
  template <class Action>
  OdSmartPtr<Action> AppendAction(const CJbCustBlockParameter* parameter, unsigned pointIndex,
                                  const OdArray<OdDbObjectId>& entities) {
    OdSmartPtr<Action> action(new Action);
    Bind(action.get(), parameter);
    action->SetParameterPointIndex(pointIndex);
    action->SetEntities(0, entities);
    return action;
  }

  // Gives value `index` of the parameter its property name.
  static void NameValue(CJbCustBlockParameter* parameter, unsigned index, const OdString& name);
  static void SetValueSet(CJbCustBlockParameter* parameter, unsigned index, const ValueSet& set);
  // A rectangular stretch frame over set `set` of the action, from two opposite corners.
  static void SetStretchFrame(CJbCustBlockAction* action, unsigned set, const OdGePoint3d& corner,
                              const OdGePoint3d& opposite);
  // Appends a row named `name` whose cells, one per column in order, are `values`; its index.
  static unsigned AddLookupRow(CJbCustBlockLookupParameter* lookup, const OdString& name,
                               const OdArray<OdResBufPtr>& values);

 private:
  void Place(CJbCustBlockParameter* parameter, const OdString& property,
             const OdArray<OdGePoint3d>& points);
  // Appends the action bound to the parameter, after checking that it accepts the parameter.
  void Bind(CJbCustBlockAction* action, const CJbCustBlockParameter* parameter);

  CJbDbCustBlockGraph* m_graph;
};
