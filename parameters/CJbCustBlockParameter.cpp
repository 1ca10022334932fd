// Base of every parameter of a customizable block.
#include "parameters/CJbCustBlockParameter.h"

#include <cmath>

#include "core/CJbDbCustBlockGraph.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "parameters/CJbCustBlockFormatVersion.h"
#include "parameters/CJbCustBlockParameterImpl.h"
#include "parameters/CJbCustBlockParameterPointBinding.h"
#include "parameters/grips/CJbCustBlockGrip.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/ge/OdGeConstants.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockParameter, "JbCustBlockParameter",
                                  CJbCustBlockElement)

namespace {
CJbCustBlockGrip* asGrip(const CJbCustBlockElementPtr& node) {
  return node.isNull() || !node->isKindOf(CJbCustBlockGrip::desc())
             ? nullptr
             : static_cast<CJbCustBlockGrip*>(node.get());
}
}  // namespace

CJbCustBlockParameter::CJbCustBlockParameter(CJbCustBlockParameterImpl* impl)
    : CJbCustBlockElement(impl) {}

CJbCustBlockParameter::~CJbCustBlockParameter() = default;

CJbCustBlockParameterImpl* CJbCustBlockParameter::ParameterImpl() const {
  return static_cast<CJbCustBlockParameterImpl*>(Impl());
}

CJbCustBlockElementPtr CJbCustBlockParameter::GripNode(unsigned index) const {
  const CJbCustBlockParameterImpl& impl = *ParameterImpl();
  if (!impl.HasPoint(index) || IsNullId(impl.m_points[index].grip) || !impl.m_graph)
    return CJbCustBlockElementPtr();
  return impl.m_graph->GetNode(impl.m_points[index].grip);
}

bool CJbCustBlockParameter::IsEqualValue(const OdResBuf* a, const OdResBuf* b) {
  if (!a || !b) return false;
  auto kind = [](int restype) {
    return restype == OdResBuf::kRtAngle ? static_cast<int>(OdResBuf::kRtDouble) : restype;
  };
  const int type = kind(a->restype());
  if (type != kind(b->restype())) return false;
  switch (type) {
    case OdResBuf::kRtDouble:
      return std::fabs(a->getDouble() - b->getDouble()) <= OdGeConstants::kTolerance;
    case OdResBuf::kRtString:
      // Kept inverted: kinds with string values do not rely on this rule.
      return !a->getString().iEquals(b->getString());
    case OdResBuf::kRtPoint3d:
      return a->getPoint3d().isEqualTo(b->getPoint3d());
    case OdResBuf::kRtInt32:
      return a->getInt32() == b->getInt32();
    default:
      return a->isEqualTo(b);
  }
}

OdString CJbCustBlockParameter::GetBaseName() const {
  return odTranslate("custblock_element", "Parameter");
}

bool CJbCustBlockParameter::EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  const bool result = CJbCustBlockElement::EndEvaluate(context);
  CJbCustBlockParameterImpl& impl = *ParameterImpl();
  for (auto& point : impl.m_points)
    point.current = point.updated;
  for (unsigned i = 0; i < impl.m_points.size(); ++i) {
    if (CJbCustBlockGrip* grip = asGrip(GripNode(i)))
      grip->SetCurrentPosition(impl.m_points[i].updated);
  }
  return result;
}

bool CJbCustBlockParameter::Reset(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockElement::Reset(context)) return false;
  CJbDbCustBlockGraphEvaluationContextPtr fresh(
      new CJbDbCustBlockGraphEvaluationContext(0, OdDbObjectId::kNull));
  const bool began = BeginEvaluate(fresh.get());
  for (auto& point : ParameterImpl()->m_points)
    point.current = point.updated = point.defined;
  const bool ended = EndEvaluate(fresh.get());
  return began && ended;
}

bool CJbCustBlockParameter::Transform(const OdGeMatrix3d& matrix, bool keepUpdated) {
  if (matrix.isEqualTo(OdGeMatrix3d::kIdentity)) return true;
  CJbCustBlockParameterImpl& impl = *ParameterImpl();
  const bool chain = IsChain();
  for (unsigned i = 0; i < impl.m_points.size(); ++i) {
    auto& point = impl.m_points[i];
    if (!keepUpdated) point.updated.transformBy(matrix);
    if (!chain) point.current.transformBy(matrix);
    if (CJbCustBlockGrip* grip = asGrip(GripNode(i)))
      grip->SetCurrentPosition(grip->GetUpdatedPosition().transformBy(matrix));
  }
  return true;
}

bool CJbCustBlockParameter::StretchPoints(const OdArray<int>& indices, const OdGeVector3d& offset,
                                          bool keepUpdated) {
  if (indices.isEmpty() || offset.isZeroLength()) return true;
  const bool chain = IsChain();
  CJbCustBlockParameterImpl& impl = *ParameterImpl();
  for (int index : indices) {
    if (index < 0 || !impl.HasPoint(static_cast<unsigned>(index))) continue;
    const auto i = static_cast<unsigned>(index);
    SetUpdatedPosition(i, GetUpdatedPosition(i) + offset);
    if (!chain) impl.m_points[i].current += offset;
  }
  return CJbCustBlockElement::StretchPoints(indices, offset, keepUpdated);
}

OdArray<OdGePoint3d> CJbCustBlockParameter::GetStretchPoints() const {
  AssertReadEnabled();
  OdArray<OdGePoint3d> points;
  for (const auto& point : ParameterImpl()->m_points)
    points.append(point.updated);
  return points;
}

bool CJbCustBlockParameter::LoadInstance(OdResBufPtr& cursor,
                                         CJbDbCustBlockGraphInstanceContext* context) {
  if (!CJbCustBlockElement::LoadInstance(cursor, context)) return false;
  for (auto& point : ParameterImpl()->m_points) {
    if (cursor.isNull() || cursor->restype() != OdResBuf::kRtPoint3d) return false;
    point.updated = cursor->getPoint3d();
    cursor = cursor->next();
  }
  return true;
}

OdResBufPtr CJbCustBlockParameter::SaveInstance(CJbDbCustBlockGraphInstanceContext* context) {
  OdResBufPtr chain = CJbCustBlockElement::SaveInstance(context);
  OdResBufPtr tail = chain->last();
  for (const auto& point : ParameterImpl()->m_points)
    tail = tail->setNext(OdResBuf::newRb(OdResBuf::kRtPoint3d, point.current));
  return chain;
}

bool CJbCustBlockParameter::NeedEvaluate() const {
  if (CJbCustBlockElement::NeedEvaluate()) return true;
  AssertReadEnabled();
  for (const auto& point : ParameterImpl()->m_points) {
    if (!point.current.isEqualTo(point.updated)) return true;
  }
  return false;
}

bool CJbCustBlockParameter::IsValid() const {
  return !GetConnectedActions().isEmpty();
}

void CJbCustBlockParameter::ValidateAndUpdateName(const CJbDbCustBlockGraph* graph) {
  CJbCustBlockElement::ValidateAndUpdateName(graph);
  for (auto& valueInfo : ParameterImpl()->m_valueInfos) {
    if (CJbCustBlockParameterValueInfo::ValidateName(valueInfo->GetName(), graph, valueInfo.get()))
      continue;
    AssertWriteEnabled();
    valueInfo->SetName(valueInfo->GenerateName(graph), this);
  }
}

OdResult CJbCustBlockParameter::dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) {
  OdResult result = CJbCustBlockElement::dwgInFields(filer, graph);
  if (result != eOk) return result;
  CJbCustBlockParameterImpl& impl = *ParameterImpl();
  try {
    for (auto& point : impl.m_points) {
      point.grip = filer->rdInt32();
      point.defined = point.current = point.updated = filer->rdPoint3d();
    }
    for (auto& valueInfo : impl.m_valueInfos) {
      result = valueInfo->dwgInFields(filer);
      if (result != eOk) return result;
    }
    impl.m_chain = filer->rdBool();
    impl.m_propertyVisible = filer->rdBool();
    if (CJbCustBlockFormatVersion::IsAtLeast(graph, 0, 1))
      impl.m_activityIconPosition = filer->rdPoint3d();
    else
      impl.m_activityIconPosition =
          impl.m_points.empty() ? OdGePoint3d::kOrigin : impl.m_points.front().defined;
  } catch (const OdError& error) {
    return error.code();
  }
  return eOk;
}

void CJbCustBlockParameter::dwgOutFields(OdDbDwgFiler* filer,
                                         const CJbDbCustBlockGraph* graph) const {
  CJbCustBlockElement::dwgOutFields(filer, graph);
  const CJbCustBlockParameterImpl& impl = *ParameterImpl();
  for (const auto& point : impl.m_points) {
    filer->wrInt32(point.grip);
    filer->wrPoint3d(point.defined);
  }
  for (const auto& valueInfo : impl.m_valueInfos)
    valueInfo->dwgOutFields(filer);
  filer->wrBool(impl.m_chain);
  filer->wrBool(impl.m_propertyVisible);
  if (CJbCustBlockFormatVersion::IsAtLeast(graph, 0, 1))
    filer->wrPoint3d(impl.m_activityIconPosition);
}

OdResult CJbCustBlockParameter::dxfInFields(OdDbDxfFiler* filer, CJbDbCustBlockGraph* graph) {
  CJbCustBlockElement::dxfInFields(filer, graph);
  return eOk;
}

OdResBufPtr CJbCustBlockParameter::GetValue(unsigned) const {
  return OdResBufPtr();
}

bool CJbCustBlockParameter::SetValue(unsigned index, const OdResBufPtr& value) {
  return IsEqualValue(GetValue(index).get(), value.get());
}

OdResBufPtr CJbCustBlockParameter::GetDefinitionValue(unsigned index) {
  auto& points = ParameterImpl()->m_points;
  std::vector<OdGePoint3d> saved;
  saved.reserve(points.size());
  for (auto& point : points) {
    saved.push_back(point.updated);
    point.updated = point.defined;
  }
  auto restore = [&]() {
    for (std::size_t i = 0; i < points.size(); ++i)
      points[i].updated = saved[i];
  };
  OdResBufPtr value;
  try {
    value = GetValue(index);
  } catch (...) {
    restore();
    throw;
  }
  restore();
  return value;
}

bool CJbCustBlockParameter::SetDefinitionValue(unsigned index, const OdResBufPtr& value) {
  auto& points = ParameterImpl()->m_points;
  for (auto& point : points)
    point.updated = point.defined;
  if (!IsEqualValue(GetValue(index).get(), value.get())) AssertWriteEnabled();
  const bool result = SetValue(index, value);
  std::vector<OdGePoint3d> updated;
  for (unsigned i = 0; i < points.size(); ++i)
    updated.push_back(GetUpdatedPosition(i));
  for (unsigned i = 0; i < points.size(); ++i)
    SetDefinedPosition(i, updated[i]);
  return result;
}

unsigned CJbCustBlockParameter::GetMaxPointCount() const {
  return GetPointCount();
}

int CJbCustBlockParameter::GetGrip(unsigned index) const {
  AssertReadEnabled();
  const CJbCustBlockParameterImpl& impl = *ParameterImpl();
  return impl.HasPoint(index) ? impl.m_points[index].grip : 0;
}

void CJbCustBlockParameter::SetGrip(unsigned index, int gripId) {
  CJbCustBlockParameterImpl& impl = *ParameterImpl();
  if (!impl.HasPoint(index) || impl.m_points[index].grip == gripId) return;
  AssertWriteEnabled();
  impl.m_points[index].grip = gripId;
}

bool CJbCustBlockParameter::IsGripVisible(unsigned index, bool checkVisibility) const {
  if (IsNullId(GetGrip(index))) return false;
  if (checkVisibility && !IsVisible()) return false;
  const CJbCustBlockParameterImpl& impl = *ParameterImpl();
  for (int actionId : GetConnectedActions()) {
    const CJbCustBlockElementPtr action = impl.m_graph->GetNode(actionId);
    const CJbCustBlockParameterPointBinding* binding =
        CJbCustBlockParameterPointBinding::Of(action.get());
    if (impl.m_points.size() < 2 || !binding || !binding->HasParameterPointIndex() ||
        binding->GetParameterPointIndex() == index)
      return true;
  }
  return false;
}

OdGePoint3d CJbCustBlockParameter::GetDefinedPosition(unsigned index) const {
  AssertReadEnabled();
  const CJbCustBlockParameterImpl& impl = *ParameterImpl();
  return impl.HasPoint(index) ? impl.m_points[index].defined : OdGePoint3d::kOrigin;
}

void CJbCustBlockParameter::SetDefinedPosition(unsigned index, const OdGePoint3d& point) {
  CJbCustBlockParameterImpl& impl = *ParameterImpl();
  if (!impl.HasPoint(index) || impl.m_points[index].defined.isEqualTo(point)) return;
  AssertWriteEnabled();
  const OdGePoint3d old = impl.m_points[index].defined;
  if (CJbCustBlockGrip* grip = asGrip(GripNode(index))) {
    const OdGeVector3d offset = grip->GetDefinitionOffset();
    grip->SetDefindedPosition(point);
    // The grip stays where it was drawn while its anchor moves.
    if (!offset.isZeroLength()) grip->SetDefinitionOffset(offset + (old - point));
  }
  impl.m_points[index].defined = point;
  SetCurrentPosition(index, point);
}

OdGePoint3d CJbCustBlockParameter::GetCurrentPosition(unsigned index) const {
  AssertReadEnabled();
  const CJbCustBlockParameterImpl& impl = *ParameterImpl();
  return impl.HasPoint(index) ? impl.m_points[index].current : OdGePoint3d::kOrigin;
}

void CJbCustBlockParameter::SetCurrentPosition(unsigned index, const OdGePoint3d& point) {
  CJbCustBlockParameterImpl& impl = *ParameterImpl();
  if (!impl.HasPoint(index)) return;
  impl.m_points[index].current = point;
  SetUpdatedPosition(index, point);
}

OdGePoint3d CJbCustBlockParameter::GetUpdatedPosition(unsigned index) const {
  AssertReadEnabled();
  const CJbCustBlockParameterImpl& impl = *ParameterImpl();
  return impl.HasPoint(index) ? impl.m_points[index].updated : OdGePoint3d::kOrigin;
}

void CJbCustBlockParameter::SetUpdatedPosition(unsigned index, const OdGePoint3d& point) {
  CJbCustBlockParameterImpl& impl = *ParameterImpl();
  if (impl.HasPoint(index)) impl.m_points[index].updated = point;
}

bool CJbCustBlockParameter::IsChain() const {
  AssertReadEnabled();
  return ParameterImpl()->m_chain;
}

void CJbCustBlockParameter::SetChain(bool chain) {
  if (ParameterImpl()->m_chain == chain) return;
  AssertWriteEnabled();
  ParameterImpl()->m_chain = chain;
}

bool CJbCustBlockParameter::IsPropertyVisible() const {
  AssertReadEnabled();
  return ParameterImpl()->m_propertyVisible;
}

void CJbCustBlockParameter::SetPropertyVisible(bool visible) {
  if (ParameterImpl()->m_propertyVisible == visible) return;
  AssertWriteEnabled();
  ParameterImpl()->m_propertyVisible = visible;
}

bool CJbCustBlockParameter::IsPropertyEnabled() const {
  return !GetConnectedActions().isEmpty();
}

OdArray<int> CJbCustBlockParameter::GetConnectedActions() const {
  OdArray<int> connected;
  GetConnections(connected, true, true);
  OdArray<int> actions;
  const CJbDbCustBlockGraph* graph = ParameterImpl()->m_graph;
  if (!graph) return actions;
  for (int id : connected) {
    if (!actions.contains(id) && CJbCustBlockParameterPointBinding::Of(graph->GetNode(id).get()))
      actions.append(id);
  }
  return actions;
}

unsigned CJbCustBlockParameter::GetPointCount() const {
  return static_cast<unsigned>(ParameterImpl()->m_points.size());
}

const CJbCustBlockParameterValueInfo* CJbCustBlockParameter::GetValueInfo(unsigned index) const {
  AssertReadEnabled();
  const auto& infos = ParameterImpl()->m_valueInfos;
  return index < infos.size() ? infos[index].get() : nullptr;
}

unsigned CJbCustBlockParameter::GetValueInfoCount() const {
  return static_cast<unsigned>(ParameterImpl()->m_valueInfos.size());
}

CJbCustBlockParameterValueInfo* CJbCustBlockParameter::GetValueInfoForModify(unsigned index) {
  auto& infos = ParameterImpl()->m_valueInfos;
  if (index >= infos.size()) return nullptr;
  AssertWriteEnabled();
  return infos[index].get();
}

bool CJbCustBlockParameter::IsValidParameter() const {
  if (!IsValid()) return false;
  for (unsigned i = 0; i < GetPointCount(); ++i) {
    if (!IsNullId(GetGrip(i)) && !IsGripVisible(i, false)) return false;
  }
  return true;
}

OdGePoint3d CJbCustBlockParameter::GetActivityIconPosition() const {
  AssertReadEnabled();
  return ParameterImpl()->m_activityIconPosition;
}

void CJbCustBlockParameter::SetActivityIconPosition(const OdGePoint3d& position) {
  if (ParameterImpl()->m_activityIconPosition.isEqualTo(position)) return;
  AssertWriteEnabled();
  ParameterImpl()->m_activityIconPosition = position;
}
