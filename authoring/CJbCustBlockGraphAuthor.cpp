// Authoring the elements of one evaluation graph.
#include "authoring/CJbCustBlockGraphAuthor.h"

#include "parameters/CJbCustBlockParameterValueInfo.h"
#include "platform/base/OdError.h"
#include "platform/host/CJbCustBlockElementUtilsPE.h"
#include "platform/rx/OdRxClassDictionary.h"

namespace {
// A new element of the kind, or OdError naming the kind when it makes no T.
template <class T>
OdSmartPtr<T> create(const OdRxClass* kind, const char* what) {
  OdSmartPtr<T> element = T::cast(kind->create().get());
  if (element.isNull()) throw OdError(eNotApplicable, kind->name().str() + " is no " + what);
  return element;
}

// The grip kind the editing utilities of a parameter kind name; null without utilities.
OdRxClass* gripKindOf(const OdRxClass* kind) {
  const CJbCustBlockElementUtilsPEPtr utilities =
      CJbCustBlockElementUtilsPE::cast(kind->getX(CJbCustBlockElementUtilsPE::desc()).get());
  return utilities.isNull() ? nullptr
                            : OdRxClassDictionary::instance().getAt(utilities->GetGripKind());
}
}  // namespace

CJbCustBlockParameterPtr CJbCustBlockGraphAuthor::AppendParameter(
    const OdRxClass* kind, const OdString& property, const OdArray<OdGePoint3d>& points) {
  const CJbCustBlockParameterPtr parameter = create<CJbCustBlockParameter>(kind, "parameter kind");
  OdArray<CJbCustBlockGripPtr> grips;
  if (OdRxClass* gripKind = gripKindOf(kind)) {
    for (unsigned index = 0; index < parameter->GetPointCount(); ++index)
      grips.append(create<CJbCustBlockGrip>(gripKind, "grip kind"));
  }
  Place(parameter.get(), property, points);
  for (unsigned index = 0; index < grips.length(); ++index)
    BindGrip(parameter.get(), index, grips[index].get());
  return parameter;
}

void CJbCustBlockGraphAuthor::Place(CJbCustBlockParameter* parameter, const OdString& property,
                                    const OdArray<OdGePoint3d>& points) {
  m_graph->AppendNode(parameter);
  for (unsigned i = 0; i < points.length() && i < parameter->GetPointCount(); ++i)
    parameter->SetDefinedPosition(i, points[i]);
  if (!property.isEmpty()) NameValue(parameter, 0, property);
}

void CJbCustBlockGraphAuthor::BindGrip(CJbCustBlockParameter* parameter, unsigned index,
                                       CJbCustBlockGrip* grip) {
  m_graph->AppendNode(grip);
  parameter->SetGrip(index, grip->GetElementId());
  grip->AddConnection(parameter->GetElementId(), false, true);
  grip->SetDefindedPosition(parameter->GetDefinedPosition(index));
}

CJbCustBlockActionPtr CJbCustBlockGraphAuthor::AppendAction(
    const OdRxClass* kind, const CJbCustBlockParameter* parameter) {
  const CJbCustBlockActionPtr action = create<CJbCustBlockAction>(kind, "action kind");
  Bind(action.get(), parameter);
  return action;
}

void CJbCustBlockGraphAuthor::Bind(CJbCustBlockAction* action,
                                   const CJbCustBlockParameter* parameter) {
  bool accepted = false;
  for (const OdRxClass* cls : action->GetAcceptableParameters())
    accepted = accepted || parameter->isKindOf(cls);
  if (!accepted)
    throw OdError(eInvalidInput, action->isA()->name().str() + " cannot be driven by " +
                                     parameter->isA()->name().str() + " \"" +
                                     parameter->GetName().str() + "\"");
  m_graph->AppendNode(action);
  action->SetParameter(parameter->GetElementId());
}

void CJbCustBlockGraphAuthor::NameValue(CJbCustBlockParameter* parameter, unsigned index,
                                        const OdString& name) {
  if (CJbCustBlockParameterValueInfo* info = parameter->GetValueInfoForModify(index))
    info->SetName(name, parameter);
}

void CJbCustBlockGraphAuthor::SetValueSet(CJbCustBlockParameter* parameter, unsigned index,
                                          const ValueSet& set) {
  CJbCustBlockParameterValueInfo* info = parameter->GetValueInfoForModify(index);
  if (!info) return;
  if (!set.list.isEmpty()) {
    info->SetList(set.list, parameter);
    return;
  }
  if (set.increment > 0) info->SetIncrement(set.increment, parameter);
  if (set.minimum) info->SetMinimum(*set.minimum, parameter);
  if (set.maximum) info->SetMaximum(&*set.maximum, parameter);
}

void CJbCustBlockGraphAuthor::SetStretchFrame(CJbCustBlockAction* action, unsigned set,
                                              const OdGePoint3d& corner,
                                              const OdGePoint3d& opposite) {
  action->SetSelectionDefinition(set, {corner, opposite}, true);
}

unsigned CJbCustBlockGraphAuthor::AddLookupRow(CJbCustBlockLookupParameter* lookup,
                                               const OdString& name,
                                               const OdArray<OdResBufPtr>& values) {
  const unsigned row = lookup->AddState();
  lookup->SetStateName(row, name);
  for (unsigned column = 0; column < values.length(); ++column)
    lookup->SetParameterValue(column, row, values[column]);
  return row;
}
