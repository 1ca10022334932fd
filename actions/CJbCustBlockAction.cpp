// Base of every action of a customizable block.
#include "actions/CJbCustBlockAction.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "actions/CJbCustBlockActionImpl.h"
#include "core/CJbDbCustBlockGraph.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "parameters/CJbCustBlockFormatVersion.h"
#include "parameters/CJbCustBlockParameter.h"
#include "platform/base/OdError.h"
#include "platform/db/OdDbEntity.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/ge/OdGeConstants.h"
#include "platform/ge/OdGeContour2d.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockAction, "JbCustBlockAction", CJbCustBlockElement)

namespace {

using SelectionSet = CJbCustBlockActionImpl::SelectionSet;

// Indices of the points inside `frame`, or none when every point is inside: such an object moves
// whole.
OdArray<int> indicesInside(const OdGeContour2d& frame, const OdArray<OdGePoint3d>& points) {
  OdArray<int> indices;
  for (unsigned i = 0; i < points.length(); ++i) {
    if (frame.contains(points[i].convert2d())) indices.append(static_cast<int>(i));
  }
  if (indices.length() == points.length()) indices.clear();
  return indices;
}

// Records, for every entity and element of `set`, the indices of its stretch points inside the
// frame through `corners` (their extents when `rectangle`) moved by `offset`.
void collectIndicesInFrame(SelectionSet& set, const CJbDbCustBlockGraph* graph, bool rectangle,
                           const OdArray<OdGePoint2d>& corners, const OdGeVector3d& offset) {
  OdGeContour2d frame;
  if (rectangle) {
    OdGePoint2d low = corners[0], high = corners[0];
    for (const auto& corner : corners) {
      low.set(std::min(low.x, corner.x), std::min(low.y, corner.y));
      high.set(std::max(high.x, corner.x), std::max(high.y, corner.y));
    }
    frame = OdGeContour2d::rectangle(low, high);
  } else {
    frame = OdGeContour2d::fromPoints(corners);
  }
  if (!offset.isZeroLength()) frame.translate(OdGeVector2d(offset.x, offset.y));
  // A frame without area encloses nothing to stretch: the whole set moves.
  if (std::fabs(frame.area()) <= OdGeContext::gTol.equalPoint()) return;
  for (unsigned i = 0; i < set.entities.length(); ++i) {
    OdDbEntityPtr entity = OdDbEntity::cast(set.entities[i].openObject(OdDb::kForRead).get());
    OdGePoint3dArray points;
    if (entity.isNull() || entity->getStretchPoints(points) != eOk) continue;
    set.entityIndices[i] = indicesInside(frame, points);
  }
  for (unsigned i = 0; i < set.elements.length(); ++i) {
    CJbCustBlockElementPtr element = graph ? graph->GetNode(set.elements[i]) : nullptr;
    if (!element.isNull())
      set.elementIndices[i] = indicesInside(frame, element->GetStretchPoints());
  }
}

bool sameIndexArrays(const OdArray<OdArray<int>>& a, const OdArray<OdArray<int>>& b) {
  if (a.length() != b.length()) return false;
  for (unsigned i = 0; i < a.length(); ++i) {
    if (a[i].length() != b[i].length()) return false;
    for (unsigned j = 0; j < a[i].length(); ++j) {
      if (a[i][j] != b[i][j]) return false;
    }
  }
  return true;
}

// A count read from a file; a negative one means the record is damaged.
int readCount(OdDbDwgFiler* filer, const char* what) {
  const int count = filer->rdInt32();
  if (count < 0)
    throw OdError(eDwgObjectImproperlyRead, std::string("negative ") + what + " count");
  return count;
}

OdArray<int> readIndices(OdDbDwgFiler* filer) {
  OdArray<int> indices;
  const int count = readCount(filer, "stretch index");
  for (int i = 0; i < count; ++i)
    indices.append(filer->rdInt32());
  return indices;
}

void writeIndices(OdDbDwgFiler* filer, const OdArray<int>& indices) {
  filer->wrInt32(static_cast<int>(indices.length()));
  for (int index : indices)
    filer->wrInt32(index);
}

// Index arrays parallel to `count` ids: the given ones, or empty ones when none are given.
OdArray<OdArray<int>> parallelIndices(unsigned count, const OdArray<OdArray<int>>& given) {
  OdArray<OdArray<int>> indices(given);
  indices.resize(count, OdArray<int>());
  return indices;
}
}  // namespace

CJbCustBlockAction::CJbCustBlockAction(CJbCustBlockActionImpl* impl) : CJbCustBlockElement(impl) {}

CJbCustBlockAction::~CJbCustBlockAction() = default;

CJbCustBlockActionImpl* CJbCustBlockAction::ActionImpl() const {
  return static_cast<CJbCustBlockActionImpl*>(Impl());
}

CJbCustBlockElementPtr CJbCustBlockAction::ParameterNode() const {
  const CJbCustBlockActionImpl& impl = *ActionImpl();
  if (IsNullId(impl.m_parameter.GetId()) || !impl.m_graph) return CJbCustBlockElementPtr();
  return impl.m_graph->GetNode(impl.m_parameter.GetId());
}

bool CJbCustBlockAction::TranslateByParameterPoint(CJbDbCustBlockGraphEvaluationContext* context) {
  const CJbCustBlockParameterPtr parameter = CJbCustBlockParameter::cast(ParameterNode().get());
  if (parameter.isNull()) return false;
  const unsigned index = GetParameterPointIndex();
  OdGeVector3d delta = parameter->GetUpdatedPosition(index) - parameter->GetCurrentPosition(index);
  ApplyModifierOffset(delta);
  return TransformAllSelections(context, OdGeMatrix3d::translation(delta));
}

OdGePoint3d CJbCustBlockAction::ModifierBasePoint(const CJbCustBlockParameter& parameter) const {
  const CJbCustBlockActionImpl& impl = *ActionImpl();
  const OdGePoint3d anchor =
      impl.m_independentBase ? OdGePoint3d::kOrigin : parameter.GetUpdatedPosition(0);
  return anchor + impl.m_workingBaseOffset;
}

bool CJbCustBlockAction::Reset(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockElement::Reset(context)) return false;
  CJbCustBlockActionImpl& impl = *ActionImpl();
  impl.m_workingAngleOffset = impl.m_angleOffset;
  impl.m_workingBaseOffset = impl.m_baseOffset;
  return true;
}

bool CJbCustBlockAction::Transform(const OdGeMatrix3d& matrix, bool) {
  CJbCustBlockActionImpl& impl = *ActionImpl();
  if (impl.m_modifierKind == CJbCustBlockActionImpl::kAngleOffsetModifier && matrix.isMirroring())
    impl.m_workingAngleOffset = -impl.m_workingAngleOffset;
  if (impl.m_modifierKind == CJbCustBlockActionImpl::kBaseOffsetModifier && impl.m_independentBase)
    impl.m_workingBaseOffset =
        (OdGePoint3d::kOrigin + impl.m_workingBaseOffset).transformBy(matrix).asVector();
  return true;
}

bool CJbCustBlockAction::LoadInstance(OdResBufPtr& cursor,
                                      CJbDbCustBlockGraphInstanceContext* context) {
  if (!CJbCustBlockElement::LoadInstance(cursor, context)) return false;
  CJbCustBlockActionImpl& impl = *ActionImpl();
  const bool forEvaluate = context && context->IsForEvaluate();
  if (impl.m_modifierKind == CJbCustBlockActionImpl::kAngleOffsetModifier) {
    if (cursor.isNull() || cursor->restype() != OdResBuf::kRtDouble) return false;
    impl.m_workingAngleOffset = forEvaluate ? impl.m_angleOffset : cursor->getDouble();
    cursor = cursor->next();
  } else if (impl.m_modifierKind == CJbCustBlockActionImpl::kBaseOffsetModifier) {
    if (cursor.isNull() || cursor->restype() != OdResBuf::kRtPoint3d) return false;
    impl.m_workingBaseOffset = forEvaluate ? impl.m_baseOffset : cursor->getVector3d();
    cursor = cursor->next();
  }
  if (context && !context->IsObjectIdRequired()) return true;

  auto readInt = [&cursor](int& value) {
    if (cursor.isNull() || cursor->restype() != OdResBuf::kRtInt32) return false;
    value = cursor->getInt32();
    cursor = cursor->next();
    return true;
  };
  int setCount = 0;
  if (!readInt(setCount) || setCount != static_cast<int>(impl.m_sets.length())) return false;
  OdArray<OdArray<OdDbObjectId>> loaded;
  for (int set = 0; set < setCount; ++set) {
    int count = 0;
    if (!readInt(count) || count < 0) return false;
    OdArray<OdDbObjectId> ids;
    for (int i = 0; i < count; ++i) {
      if (cursor.isNull() || cursor->restype() != OdResBuf::kDxfSoftPointerId) return false;
      ids.append(cursor->getObjectId());
      cursor = cursor->next();
    }
    loaded.append(ids);
  }
  // Taken only once the whole state has been read, so a damaged chain changes nothing.
  for (int set = 0; set < setCount; ++set)
    impl.m_sets[set].currentEntities = loaded[set];
  return true;
}

OdResBufPtr CJbCustBlockAction::SaveInstance(CJbDbCustBlockGraphInstanceContext* context) {
  OdResBufPtr chain = CJbCustBlockElement::SaveInstance(context);
  OdResBufPtr tail = chain->last();
  const CJbCustBlockActionImpl& impl = *ActionImpl();
  if (impl.m_modifierKind == CJbCustBlockActionImpl::kAngleOffsetModifier)
    tail = tail->setNext(OdResBuf::newRb(OdResBuf::kRtDouble, impl.m_workingAngleOffset));
  else if (impl.m_modifierKind == CJbCustBlockActionImpl::kBaseOffsetModifier)
    tail = tail->setNext(OdResBuf::newRb(OdResBuf::kRtPoint3d, impl.m_workingBaseOffset));
  if (context && !context->IsObjectIdRequired()) return chain;
  tail = tail->setNext(OdResBuf::newRb(OdResBuf::kRtInt32, static_cast<int>(impl.m_sets.length())));
  for (const auto& set : impl.m_sets) {
    tail = tail->setNext(
        OdResBuf::newRb(OdResBuf::kRtInt32, static_cast<int>(set.currentEntities.length())));
    for (const auto& id : set.currentEntities)
      tail = tail->setNext(OdResBuf::newRb(OdResBuf::kDxfSoftPointerId, id));
  }
  return chain;
}

bool CJbCustBlockAction::IsValid() const {
  CJbCustBlockElementPtr parameter = ParameterNode();
  if (parameter.isNull()) return false;
  for (OdRxClass* accepted : GetAcceptableParameters()) {
    if (parameter->isKindOf(accepted)) return true;
  }
  return false;
}

OdResult CJbCustBlockAction::dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) {
  OdResult result = CJbCustBlockElement::dwgInFields(filer, graph);
  if (result != eOk) return result;
  CJbCustBlockActionImpl& impl = *ActionImpl();
  try {
    impl.m_parameter.SetId(filer->rdInt32());
    impl.m_pointIndex = static_cast<unsigned>(filer->rdInt32());
    if (impl.m_modifierKind == CJbCustBlockActionImpl::kAngleOffsetModifier) {
      impl.m_distanceType = kWholeVector;
      double angle = filer->rdDouble();
      impl.m_distanceMultiplier = filer->rdDouble();
      if (CJbCustBlockFormatVersion::IsAtLeast(graph, 0, 7) && std::isfinite(angle)) {
        const double type = std::floor(angle / OdGeConstants::k2Pi);
        if (type < kWholeVector || type > kYComponent) return eDwgObjectImproperlyRead;
        impl.m_distanceType = static_cast<unsigned>(type);
        angle -= type * OdGeConstants::k2Pi;
      }
      impl.m_angleOffset = angle;
      // Reset takes the stored angle before any evaluation.
      impl.m_workingAngleOffset = impl.m_distanceMultiplier;
    } else if (impl.m_modifierKind == CJbCustBlockActionImpl::kBaseOffsetModifier) {
      impl.m_baseOffset = impl.m_workingBaseOffset = filer->rdVector3d();
      impl.m_independentBase = filer->rdBool();
    }
    OdArray<SelectionSet> sets;
    const int setCount = readCount(filer, "selection set");
    for (int s = 0; s < setCount; ++s) {
      SelectionSet set;
      const int entityCount = readCount(filer, "selection entity");
      for (int i = 0; i < entityCount; ++i) {
        set.entities.append(filer->rdSoftPointerId());
        set.entityIndices.append(readIndices(filer));
      }
      set.currentEntities = set.entities;
      const int elementCount = readCount(filer, "selection element");
      for (int i = 0; i < elementCount; ++i) {
        set.elements.append(filer->rdInt32());
        set.elementIndices.append(readIndices(filer));
      }
      set.kind = filer->rdInt32();
      if (set.kind != CJbCustBlockActionImpl::kRegularSelection) {
        if (set.kind != CJbCustBlockActionImpl::kRectangleSelection &&
            set.kind != CJbCustBlockActionImpl::kPolygonSelection)
          return eDwgObjectImproperlyRead;
        const int pointCount = readCount(filer, "selection frame point");
        for (int i = 0; i < pointCount; ++i)
          set.definition.append(filer->rdPoint3d());
      }
      sets.append(set);
    }
    impl.m_sets = sets;
  } catch (const OdError& error) {
    return error.code();
  }
  return filer->filerStatus();
}

void CJbCustBlockAction::dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const {
  CJbCustBlockElement::dwgOutFields(filer, graph);
  const CJbCustBlockActionImpl& impl = *ActionImpl();
  filer->wrInt32(impl.m_parameter.GetId());
  filer->wrInt32(static_cast<int>(impl.m_pointIndex));
  if (impl.m_modifierKind == CJbCustBlockActionImpl::kAngleOffsetModifier) {
    double angle = impl.m_angleOffset -
                   std::floor(impl.m_angleOffset / OdGeConstants::k2Pi) * OdGeConstants::k2Pi;
    // The distance type travels in the whole turns of the angle.
    if (CJbCustBlockFormatVersion::IsAtLeast(graph, 0, 7))
      angle += impl.m_distanceType * OdGeConstants::k2Pi;
    filer->wrDouble(angle);
    filer->wrDouble(impl.m_distanceMultiplier);
  } else if (impl.m_modifierKind == CJbCustBlockActionImpl::kBaseOffsetModifier) {
    filer->wrVector3d(impl.m_baseOffset);
    filer->wrBool(impl.m_independentBase);
  }
  filer->wrInt32(static_cast<int>(impl.m_sets.length()));
  for (const auto& set : impl.m_sets) {
    filer->wrInt32(static_cast<int>(set.entities.length()));
    for (unsigned i = 0; i < set.entities.length(); ++i) {
      filer->wrSoftPointerId(set.entities[i]);
      writeIndices(filer, set.entityIndices[i]);
    }
    filer->wrInt32(static_cast<int>(set.elements.length()));
    for (unsigned i = 0; i < set.elements.length(); ++i) {
      filer->wrInt32(set.elements[i]);
      writeIndices(filer, set.elementIndices[i]);
    }
    if (set.kind != CJbCustBlockActionImpl::kRegularSelection && set.definition.length() >= 2) {
      filer->wrInt32(set.kind);
      filer->wrInt32(static_cast<int>(set.definition.length()));
      for (const auto& point : set.definition)
        filer->wrPoint3d(point);
    } else {
      filer->wrInt32(CJbCustBlockActionImpl::kRegularSelection);
    }
  }
}

void CJbCustBlockAction::Cleanup() {
  CJbCustBlockElement::Cleanup();
  CJbCustBlockActionImpl& impl = *ActionImpl();
  for (auto& set : impl.m_sets) {
    for (unsigned i = set.entities.length(); i-- > 0;) {
      if (!set.entities[i].isNull() && !set.entities[i].isErased()) continue;
      AssertWriteEnabled();
      set.entities.removeAt(i);
      set.entityIndices.removeAt(i);
      if (i < set.currentEntities.length()) set.currentEntities.removeAt(i);
    }
    for (unsigned i = set.elements.length(); i-- > 0;) {
      if (impl.m_graph && impl.m_graph->HasNode(set.elements[i])) continue;
      AssertWriteEnabled();
      set.elements.removeAt(i);
      set.elementIndices.removeAt(i);
    }
  }
}

bool CJbCustBlockAction::TransformAllSelections(CJbDbCustBlockGraphEvaluationContext* context,
                                                const OdGeMatrix3d& matrix) {
  bool result = true;
  for (unsigned set = 0; set < GetRequiredSelectionSetCount(); ++set)
    result = TransformSelection(context, set, matrix) && result;
  return result;
}

bool CJbCustBlockAction::TransformSelection(CJbDbCustBlockGraphEvaluationContext* context,
                                            unsigned set, const OdGeMatrix3d& matrix) {
  CJbCustBlockActionImpl& impl = *ActionImpl();
  if (!impl.HasSet(set)) return false;
  if (matrix.isEqualTo(OdGeMatrix3d::kIdentity)) return true;
  AssertWriteEnabled();
  const bool stretch = IsAreaRequired(set);
  const SelectionSet& selection = impl.m_sets[set];
  const OdGeVector3d offset = matrix.translation();
  const bool afterRedefine = context && context->IsAfterBlockRedefine();
  if (!context || !context->IgnoreBlockEntities()) {
    // Checked before anything moves, so that the block is never left half changed.
    if (selection.entities.length() > selection.currentEntities.length())
      throw OdError(eInvalidIndex, "action selection: no entity of the evaluated block for entry " +
                                       std::to_string(selection.currentEntities.length()));
    // Every entity is opened first: one that is erased or not an entity fails the set untouched.
    OdArray<OdDbEntityPtr> entities;
    for (unsigned i = 0; i < selection.entities.length(); ++i) {
      OdDbObjectPtr object;
      if (selection.currentEntities[i].openObject(object, OdDb::kForWrite) != eOk) return false;
      entities.append(OdDbEntity::cast(object.get()));
      if (entities.last().isNull()) return false;
    }
    for (unsigned i = 0; i < entities.length(); ++i) {
      const OdDbAttributeDefinition* attribute =
          OdDbAttributeDefinition::cast(entities[i].get()).get();
      if (attribute && !attribute->lockPositionInBlock()) continue;
      if (stretch && !selection.entityIndices[i].isEmpty())
        entities[i]->moveStretchPointsAt(selection.entityIndices[i], offset);
      else
        entities[i]->transformBy(matrix);
    }
  }
  for (unsigned i = 0; i < selection.elements.length(); ++i) {
    CJbCustBlockElementPtr element =
        impl.m_graph ? impl.m_graph->GetNode(selection.elements[i]) : CJbCustBlockElementPtr();
    if (element.isNull() || element.get() == this) continue;
    if (stretch && !selection.elementIndices[i].isEmpty())
      element->StretchPoints(selection.elementIndices[i], offset, afterRedefine);
    else
      element->Transform(matrix, afterRedefine);
  }
  return true;
}

bool CJbCustBlockAction::IsParameterPointIndexReadOnly() const {
  return false;
}

bool CJbCustBlockAction::HasParameterPointIndex() const {
  return true;
}

bool CJbCustBlockAction::IsAreaRequired(unsigned) const {
  return false;
}

OdArray<OdRxClass*> CJbCustBlockAction::GetAcceptableParameters() const {
  return OdArray<OdRxClass*>();
}

bool CJbCustBlockAction::IsOneActionPerParameter() const {
  return false;
}

bool CJbCustBlockAction::ValidateParameter(const OdDbObjectId& graphId, int parameterId,
                                           ValidationErrorReason& reason) const {
  reason = kNoError;
  OdSmartPtr<CJbDbCustBlockGraph> graph =
      CJbDbCustBlockGraph::cast(graphId.openObject(OdDb::kForRead).get());
  CJbCustBlockElementPtr parameter = graph.isNull() ? nullptr : graph->GetNode(parameterId);
  if (parameter.isNull()) return false;
  bool accepted = false;
  for (OdRxClass* cls : GetAcceptableParameters())
    accepted = accepted || parameter->isKindOf(cls);
  if (!accepted) {
    reason = kUnacceptableParameter;
    return false;
  }
  if (!IsOneActionPerParameter()) return true;
  OdArray<int> dependents;
  parameter->GetConnections(dependents, false, true);
  for (int id : dependents) {
    CJbCustBlockElementPtr dependent = graph->GetNode(id);
    if (!dependent.isNull() && dependent->isA() == isA()) {
      reason = kParameterTaken;
      return false;
    }
  }
  return true;
}

int CJbCustBlockAction::GetParameter() const {
  AssertReadEnabled();
  return ActionImpl()->m_parameter.GetId();
}

void CJbCustBlockAction::SetParameter(int id) {
  CJbCustBlockActionImpl& impl = *ActionImpl();
  if (impl.m_parameter.GetId() == id) return;
  AssertWriteEnabled();
  impl.m_parameter.Assign(id, this);
}

unsigned CJbCustBlockAction::GetParameterPointIndex() const {
  AssertReadEnabled();
  return ActionImpl()->m_pointIndex;
}

void CJbCustBlockAction::SetParameterPointIndex(unsigned index) {
  CJbCustBlockActionImpl& impl = *ActionImpl();
  if (impl.m_pointIndex == index) return;
  AssertWriteEnabled();
  impl.m_pointIndex = index;
}

bool CJbCustBlockAction::HasAngleOffsetAndDistanceMultiplier(double* multiplier, double* angle,
                                                             DistanceType* type) const {
  AssertReadEnabled();
  const CJbCustBlockActionImpl& impl = *ActionImpl();
  if (impl.m_modifierKind != CJbCustBlockActionImpl::kAngleOffsetModifier) return false;
  if (multiplier) *multiplier = impl.m_distanceMultiplier;
  if (angle) *angle = impl.m_angleOffset;
  if (type) *type = static_cast<DistanceType>(impl.m_distanceType);
  return true;
}

bool CJbCustBlockAction::SetAngleOffsetAndDistanceMultiplier(double multiplier, double angle,
                                                             DistanceType type) {
  CJbCustBlockActionImpl& impl = *ActionImpl();
  if (impl.m_modifierKind != CJbCustBlockActionImpl::kAngleOffsetModifier) return false;
  if (std::fabs(multiplier - impl.m_distanceMultiplier) <= OdGeConstants::kTolerance &&
      std::fabs(angle - impl.m_angleOffset) <= OdGeConstants::kTolerance &&
      static_cast<unsigned>(type) == impl.m_distanceType)
    return true;
  AssertWriteEnabled();
  impl.m_distanceMultiplier = multiplier;
  impl.m_angleOffset = impl.m_workingAngleOffset = angle;
  impl.m_distanceType = static_cast<unsigned>(type);
  return true;
}

bool CJbCustBlockAction::HasBaseOffset(OdGeVector3d* offset, bool* independent) const {
  AssertReadEnabled();
  const CJbCustBlockActionImpl& impl = *ActionImpl();
  if (impl.m_modifierKind != CJbCustBlockActionImpl::kBaseOffsetModifier) return false;
  if (offset) *offset = impl.m_baseOffset;
  if (independent) *independent = impl.m_independentBase;
  return true;
}

bool CJbCustBlockAction::SetBaseOffset(const OdGeVector3d& offset, bool independent) {
  CJbCustBlockActionImpl& impl = *ActionImpl();
  if (impl.m_modifierKind != CJbCustBlockActionImpl::kBaseOffsetModifier) return false;
  if (offset.isEqualTo(impl.m_baseOffset) && independent == impl.m_independentBase) return true;
  AssertWriteEnabled();
  impl.m_baseOffset = impl.m_workingBaseOffset = offset;
  impl.m_independentBase = independent;
  return true;
}

void CJbCustBlockAction::ApplyModifierOffset(OdGeVector3d& vector) const {
  const CJbCustBlockActionImpl& impl = *ActionImpl();
  if (impl.m_modifierKind != CJbCustBlockActionImpl::kAngleOffsetModifier) return;
  if (impl.m_distanceType == kXComponent)
    vector = OdGeVector3d::kXAxis * vector.dotProduct(OdGeVector3d::kXAxis);
  else if (impl.m_distanceType == kYComponent)
    vector = OdGeVector3d::kYAxis * vector.dotProduct(OdGeVector3d::kYAxis);
  vector.rotateBy(impl.m_workingAngleOffset, OdGeVector3d::kZAxis);
  vector *= impl.m_distanceMultiplier;
}

OdArray<OdGePoint3d> CJbCustBlockAction::GetSelectionDefinition(unsigned set) const {
  AssertReadEnabled();
  const CJbCustBlockActionImpl& impl = *ActionImpl();
  return impl.HasSet(set) ? impl.m_sets[set].definition : OdArray<OdGePoint3d>();
}

void CJbCustBlockAction::SetSelectionDefinition(unsigned set, const OdArray<OdGePoint3d>& points,
                                                bool recalculate) {
  CJbCustBlockActionImpl& impl = *ActionImpl();
  if (!impl.HasSet(set)) return;
  AssertWriteEnabled();
  SelectionSet& selection = impl.m_sets[set];
  selection.definition = points;
  if (points.length() == 2)
    selection.kind = CJbCustBlockActionImpl::kRectangleSelection;
  else if (points.length() > 2)
    selection.kind = CJbCustBlockActionImpl::kPolygonSelection;
  else
    selection.kind = CJbCustBlockActionImpl::kRegularSelection;
  if (recalculate) RecalculateSelectionSetByDefinition(set, OdGeVector3d::kZero);
}

void CJbCustBlockAction::RecalculateSelectionSetByDefinition(unsigned set,
                                                             const OdGeVector3d& offset) {
  CJbCustBlockActionImpl& impl = *ActionImpl();
  const unsigned count = impl.m_sets.length();
  if (set > count) return;
  AssertReadEnabled();
  const unsigned first = set == count ? 0 : set;
  const unsigned end = set == count ? count : set + 1;
  for (unsigned s = first; s < end; ++s) {
    SelectionSet updated = impl.m_sets[s];
    updated.entityIndices = parallelIndices(updated.entities.length(), OdArray<OdArray<int>>());
    updated.elementIndices = parallelIndices(updated.elements.length(), OdArray<OdArray<int>>());
    OdArray<OdGePoint2d> corners;
    for (const auto& point : updated.definition)
      corners.append(point.convert2d());
    const bool rectangle = updated.kind == CJbCustBlockActionImpl::kRectangleSelection;
    const bool polygon = updated.kind == CJbCustBlockActionImpl::kPolygonSelection;
    if ((rectangle && corners.length() >= 2) || (polygon && corners.length() >= 3))
      collectIndicesInFrame(updated, impl.m_graph, rectangle, corners, offset);
    const SelectionSet& stored = impl.m_sets[s];
    if (sameIndexArrays(updated.entityIndices, stored.entityIndices) &&
        sameIndexArrays(updated.elementIndices, stored.elementIndices))
      continue;
    AssertWriteEnabled();
    impl.m_sets[s] = updated;
  }
}

OdArray<OdDbObjectId> CJbCustBlockAction::GetEntities(unsigned set,
                                                      OdArray<OdArray<int>>* indices) const {
  AssertReadEnabled();
  const CJbCustBlockActionImpl& impl = *ActionImpl();
  if (!impl.HasSet(set)) {
    if (indices) indices->clear();
    return OdArray<OdDbObjectId>();
  }
  if (indices) *indices = impl.m_sets[set].entityIndices;
  return impl.m_sets[set].entities;
}

void CJbCustBlockAction::SetEntities(unsigned set, const OdArray<OdDbObjectId>& ids,
                                     const OdArray<OdArray<int>>& indices) {
  CJbCustBlockActionImpl& impl = *ActionImpl();
  if (!impl.HasSet(set)) return;
  AssertWriteEnabled();
  SelectionSet& selection = impl.m_sets[set];
  selection.entities = ids;
  selection.entityIndices = parallelIndices(ids.length(), indices);
  selection.currentEntities = ids;
}

OdArray<int> CJbCustBlockAction::GetElements(unsigned set, OdArray<OdArray<int>>* indices) const {
  AssertReadEnabled();
  const CJbCustBlockActionImpl& impl = *ActionImpl();
  if (!impl.HasSet(set)) {
    if (indices) indices->clear();
    return OdArray<int>();
  }
  if (indices) *indices = impl.m_sets[set].elementIndices;
  return impl.m_sets[set].elements;
}

void CJbCustBlockAction::SetElements(unsigned set, const OdArray<int>& ids,
                                     const OdArray<OdArray<int>>& indices) {
  CJbCustBlockActionImpl& impl = *ActionImpl();
  if (!impl.HasSet(set)) return;
  AssertWriteEnabled();
  impl.m_sets[set].elements = ids;
  impl.m_sets[set].elementIndices = parallelIndices(ids.length(), indices);
}

OdArray<OdDbObjectId> CJbCustBlockAction::GetCurrentEntities(unsigned set) const {
  AssertReadEnabled();
  const CJbCustBlockActionImpl& impl = *ActionImpl();
  return impl.HasSet(set) ? impl.m_sets[set].currentEntities : OdArray<OdDbObjectId>();
}

void CJbCustBlockAction::SetCurrentEntities(unsigned set, const OdArray<OdDbObjectId>& ids) {
  CJbCustBlockActionImpl& impl = *ActionImpl();
  if (!impl.HasSet(set)) return;
  AssertWriteEnabled();
  impl.m_sets[set].currentEntities = ids;
}

bool CJbCustBlockAction::IsRegularSelection(unsigned set) const {
  AssertReadEnabled();
  const CJbCustBlockActionImpl& impl = *ActionImpl();
  return impl.HasSet(set) && impl.m_sets[set].kind == CJbCustBlockActionImpl::kRegularSelection;
}

bool CJbCustBlockAction::IsRectangleSelection(unsigned set) const {
  AssertReadEnabled();
  const CJbCustBlockActionImpl& impl = *ActionImpl();
  return impl.HasSet(set) && impl.m_sets[set].kind == CJbCustBlockActionImpl::kRectangleSelection;
}

bool CJbCustBlockAction::IsPolygonSelection(unsigned set) const {
  AssertReadEnabled();
  const CJbCustBlockActionImpl& impl = *ActionImpl();
  return impl.HasSet(set) && impl.m_sets[set].kind == CJbCustBlockActionImpl::kPolygonSelection;
}

unsigned CJbCustBlockAction::GetRequiredSelectionSetCount() const {
  AssertReadEnabled();
  return ActionImpl()->m_sets.length();
}
