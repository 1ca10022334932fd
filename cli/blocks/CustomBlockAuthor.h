// Authors one customizable block through the element API: the block and its entities, an
// evaluation graph of parameters whose points carry grips, and the actions those parameters
// drive. finish() registers the block as a master in the drawing's block storage.
#pragma once

#include "actions/CJbCustBlockAction.h"
#include "core/CJbDbCustBlockGraph.h"
#include "parameters/CJbCustBlockParameter.h"
#include "parameters/CJbCustBlockParameterValueInfo.h"
#include "parameters/grips/CJbCustBlockGrip.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbEntity.h"

class CustomBlockAuthor {
 public:
  // A new block of that name in the drawing, with an empty graph.
  CustomBlockAuthor(OdDbDatabase* database, const OdString& name);

  OdDbObjectId blockId() const { return m_blockId; }
  CJbDbCustBlockGraph* graph() const { return m_graph.get(); }

  OdDbObjectId addEntity(OdDbEntity* entity);
  OdDbObjectId addLine(const OdGePoint3d& from, const OdGePoint3d& to);
  OdDbObjectId addPolyline(const OdArray<OdGePoint3d>& points, bool closed);
  OdDbObjectId addRectangle(const OdGePoint3d& min, const OdGePoint3d& max);
  // Angles in radians, counter-clockwise.
  OdDbObjectId addArc(const OdGePoint3d& center, double radius, double start, double end);
  OdDbObjectId addCircle(const OdGePoint3d& center, double radius);
  OdDbObjectId addText(const OdGePoint3d& at, double height, const OdString& text);

  // A parameter at `points` whose first value carries the property name `property`; the listed
  // points get a grip of kind Grip.
  template <class Parameter, class Grip = void>
  OdSmartPtr<Parameter> addParameter(const OdString& property, const OdArray<OdGePoint3d>& points,
                                     const OdArray<unsigned>& grippedPoints = {}) {
    OdSmartPtr<Parameter> parameter(new Parameter);
    m_graph->AppendNode(parameter);
    for (unsigned i = 0; i < points.length() && i < parameter->GetPointCount(); ++i)
      parameter->SetDefinedPosition(i, points[i]);
    if (!property.isEmpty()) nameValue(parameter.get(), 0, property);
    if constexpr (!std::is_void_v<Grip>) {
      for (unsigned index : grippedPoints)
        bindGrip(parameter.get(), index, new Grip);
    }
    return parameter;
  }
  // Gives value `index` of the parameter its property name.
  static void nameValue(CJbCustBlockParameter* parameter, unsigned index, const OdString& name);
  void bindGrip(CJbCustBlockParameter* parameter, unsigned index, CJbCustBlockGrip* grip);

  // An action driven by point `pointIndex` of the parameter, transforming `entities` in set 0.
  template <class Action>
  OdSmartPtr<Action> addAction(const CJbCustBlockParameter* parameter, unsigned pointIndex,
                               const OdArray<OdDbObjectId>& entities) {
    OdSmartPtr<Action> action(new Action);
    m_graph->AppendNode(action);
    action->SetParameter(parameter->GetElementId());
    action->SetParameterPointIndex(pointIndex);
    action->SetEntities(0, entities);
    return action;
  }
  // A stretch frame (two corners) over set `set` of the action.
  static void setFrame(CJbCustBlockAction* action, unsigned set, const OdGePoint3d& min,
                       const OdGePoint3d& max);

  // Settles the graph at its definition and registers the block as a master; returns the block.
  OdDbObjectId finish();

 private:
  OdDbDatabase* m_database;
  OdDbObjectId m_blockId;
  CJbDbCustBlockGraphPtr m_graph;
};
