#include "module/gripPoints/CJbBlockRefGripPointsPEProxy.h"

#include "parameters/CJbCustBlockLookupParameter.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"
#include "parameters/grips/CJbCustBlockAlignmentGrip.h"
#include "parameters/grips/CJbCustBlockFlipGrip.h"
#include "parameters/grips/CJbCustBlockLookupGrip.h"
#include "parameters/grips/CJbCustBlockVisibilityGrip.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "storage/CJbCustBlockEditorHelper.h"

namespace {
// The grips a user sees, in the order the block-instance grip points list them.
OdArray<CJbCustBlockGripPtr> visibleGrips(const CJbDbCustBlockGraph* graph) {
  OdArray<CJbCustBlockGripPtr> grips;
  for (int id : graph->GetAllNodeIds()) {
    const CJbCustBlockGripPtr grip = CJbCustBlockGrip::cast(graph->GetNode(id).get());
    if (!grip.isNull() && grip->IsVisible()) grips.append(grip);
  }
  return grips;
}

// The graph of a customizable block reference loaded with its state, to read; null for another
// entity.
CJbDbCustBlockGraphPtr graphToRead(const OdDbEntity* entity) {
  const OdSmartPtr<OdDbBlockReference> reference = OdDbBlockReference::cast(entity);
  if (reference.isNull()) return CJbDbCustBlockGraphPtr();
  CJbCustBlockEditorHelper helper(reference->objectId());
  return helper.GetGraph(OdDb::kForRead);
}

// Sets the state `state` asks of a clicked grip; false for a grip that is dragged.
bool click(const CJbDbCustBlockGraph& graph, CJbCustBlockGrip& grip, int state) {
  if (const auto flip = CJbCustBlockFlipGrip::cast(&grip)) {
    flip->SetFlipped(!flip->IsFlipped());
  } else if (const auto lookup = CJbCustBlockLookupGrip::cast(&grip)) {
    lookup->SetState(state);
  } else if (const auto alignment = CJbCustBlockAlignmentGrip::cast(&grip)) {
    alignment->SetState(state);
  } else if (CJbCustBlockVisibilityGrip::cast(&grip)) {
    // A visibility grip's own request never asks for an evaluation: the state goes to its
    // parameter as its value, as a typed state would.
    unsigned point = 0;
    const CJbCustBlockParameterPtr parameter =
        CJbCustBlockParameter::cast(graph.GetNode(grip.GetParameter(&point)).get());
    return state >= 0 && !parameter.isNull() &&
           parameter->SetValue(0, OdResBuf::newRb(OdResBuf::kRtInt32, state));
  } else {
    return false;
  }
  return true;
}

// The state names of the visibility or lookup parameter a grip drives, with `current` set from
// the grip; empty for grips of other parameters.
template <class Parameter, class Grip>
bool stateNames(const CJbDbCustBlockGraph& graph, const CJbCustBlockGrip& grip,
                OdArray<OdString>& names, int& current) {
  const OdSmartPtr<Grip> typed = Grip::cast(&grip);
  if (typed.isNull()) return false;
  unsigned point = 0;
  const OdSmartPtr<Parameter> parameter =
      Parameter::cast(graph.GetNode(grip.GetParameter(&point)).get());
  if (parameter.isNull()) return false;
  for (unsigned state = 0; state < parameter->GetStateCount(); ++state)
    names.append(parameter->GetStateName(state));
  current = static_cast<int>(typed->GetState());
  return true;
}
}  // namespace

OdArray<CJbGripPointsPE::Grip> CJbBlockRefGripPointsPEProxy::GetGrips(
    const OdDbEntity* entity) const {
  OdArray<Grip> result;
  const CJbDbCustBlockGraphPtr graph = graphToRead(entity);
  if (graph.isNull()) return result;
  const OdGeMatrix3d toDrawing = OdDbBlockReference::cast(entity)->blockTransform();
  for (const CJbCustBlockGripPtr& grip : visibleGrips(graph.get()))
    result.append(Grip{toDrawing * grip->GetDisplayPosition(), grip->GetType(), grip->GetName()});
  return result;
}

bool CJbBlockRefGripPointsPEProxy::MoveGrip(const OdDbObjectId& entity, unsigned index,
                                            const OdGeVector3d& offset) const {
  const OdSmartPtr<OdDbBlockReference> reference =
      OdDbBlockReference::cast(entity.openObject(OdDb::kForWrite).get());
  if (reference.isNull() || index >= GetGrips(reference.get()).length()) return false;
  OdGePoint3dArray own;
  reference->subGetGripPoints(own);
  return reference->moveGripPointsAt({static_cast<int>(own.length() + index)}, offset) == eOk;
}

bool CJbBlockRefGripPointsPEProxy::ClickGrip(const OdDbObjectId& entity, unsigned index,
                                             int state) const {
  CJbCustBlockEditorHelper helper(entity);
  const CJbDbCustBlockGraphPtr graph = helper.GetGraph(OdDb::kForWrite);
  if (graph.isNull()) return false;
  const OdArray<CJbCustBlockGripPtr> grips = visibleGrips(graph.get());
  return index < grips.length() && click(*graph, *grips[index], state) && helper.Commit();
}

OdArray<OdString> CJbBlockRefGripPointsPEProxy::GetGripStates(const OdDbEntity* entity,
                                                              unsigned index, int& current) const {
  current = -1;
  OdArray<OdString> names;
  const CJbDbCustBlockGraphPtr graph = graphToRead(entity);
  if (graph.isNull()) return names;
  const OdArray<CJbCustBlockGripPtr> grips = visibleGrips(graph.get());
  if (index >= grips.length()) return names;
  const CJbCustBlockGrip& grip = *grips[index];
  if (!stateNames<CJbCustBlockVisibilityParameter, CJbCustBlockVisibilityGrip>(*graph, grip, names,
                                                                               current))
    stateNames<CJbCustBlockLookupParameter, CJbCustBlockLookupGrip>(*graph, grip, names, current);
  return names;
}
