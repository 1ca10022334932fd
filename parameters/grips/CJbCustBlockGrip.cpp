// Base of every grip.
#include "parameters/grips/CJbCustBlockGrip.h"

#include "core/CJbDbCustBlockGraph.h"
#include "parameters/CJbCustBlockFormatVersion.h"
#include "parameters/CJbCustBlockParameter.h"
#include "parameters/grips/CJbCustBlockGripImpl.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockGrip, "JbCustBlockGrip", CJbCustBlockElement)

CJbCustBlockGrip::CJbCustBlockGrip(CJbCustBlockGripImpl* impl) : CJbCustBlockElement(impl) {}

CJbCustBlockGrip::~CJbCustBlockGrip() = default;

CJbCustBlockGripImpl* CJbCustBlockGrip::GripImpl() const {
  return static_cast<CJbCustBlockGripImpl*>(Impl());
}

bool CJbCustBlockGrip::EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  const bool result = CJbCustBlockElement::EndEvaluate(context);
  GripImpl()->m_currentPosition = GripImpl()->m_updatedPosition;
  return result;
}

bool CJbCustBlockGrip::Reset(CJbDbCustBlockGraphEvaluationContext* context) {
  const bool result = CJbCustBlockElement::Reset(context);
  CJbCustBlockGripImpl& impl = *GripImpl();
  impl.m_updatedPosition = impl.m_currentPosition = impl.m_definedPosition;
  impl.m_currentDirection = impl.m_definitionDirection;
  impl.m_currentOffset = impl.m_definitionOffset;
  return result;
}

bool CJbCustBlockGrip::LoadInstance(OdResBufPtr& cursor,
                                    CJbDbCustBlockGraphInstanceContext* context) {
  if (!CJbCustBlockElement::LoadInstance(cursor, context)) return false;
  CJbCustBlockGripImpl& impl = *GripImpl();
  auto next = [&cursor](OdGeVector3d& value) {
    if (cursor.isNull() || cursor->restype() != OdResBuf::kRtPoint3d) return false;
    value = cursor->getVector3d();
    cursor = cursor->next();
    return true;
  };
  OdGeVector3d position;
  if (!next(impl.m_currentOffset) || !next(impl.m_currentDirection) || !next(position))
    return false;
  impl.m_currentPosition = impl.m_updatedPosition = position.asPoint();
  return true;
}

OdResBufPtr CJbCustBlockGrip::SaveInstance(CJbDbCustBlockGraphInstanceContext* context) {
  OdResBufPtr chain = CJbCustBlockElement::SaveInstance(context);
  const CJbCustBlockGripImpl& impl = *GripImpl();
  chain->last()
      ->setNext(OdResBuf::newRb(OdResBuf::kRtPoint3d, impl.m_currentOffset))
      ->setNext(OdResBuf::newRb(OdResBuf::kRtPoint3d, impl.m_currentDirection))
      ->setNext(OdResBuf::newRb(OdResBuf::kRtPoint3d, impl.m_currentPosition));
  return chain;
}

bool CJbCustBlockGrip::NeedEvaluate() const {
  AssertReadEnabled();
  return !GripImpl()->m_updatedPosition.isEqualTo(GripImpl()->m_currentPosition);
}

bool CJbCustBlockGrip::IsVisible() const {
  if (!CJbCustBlockElement::IsVisible()) return false;
  unsigned index = 0;
  const int parameterId = GetParameter(&index);
  if (IsNullId(parameterId)) return false;
  const CJbCustBlockParameterPtr parameter =
      CJbCustBlockParameter::cast(GripImpl()->m_graph->GetNode(parameterId).get());
  return parameter->IsGripVisible(index, true);
}

OdResult CJbCustBlockGrip::dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) {
  const OdResult result = CJbCustBlockElement::dwgInFields(filer, graph);
  if (result != eOk) return result;
  CJbCustBlockGripImpl& impl = *GripImpl();
  try {
    impl.m_definitionOffset = impl.m_currentOffset = filer->rdVector3d();
    impl.m_definitionDirection = impl.m_currentDirection = filer->rdVector3d();
    impl.m_definedPosition = impl.m_currentPosition = impl.m_updatedPosition = filer->rdPoint3d();
    impl.m_reserved = filer->rdInt32();
    impl.m_cyclingEnabled =
        CJbCustBlockFormatVersion::IsAtLeast(graph, 0, 3) ? filer->rdBool() : true;
  } catch (const OdError& error) {
    return error.code();
  }
  return eOk;
}

void CJbCustBlockGrip::dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const {
  CJbCustBlockElement::dwgOutFields(filer, graph);
  const CJbCustBlockGripImpl& impl = *GripImpl();
  filer->wrVector3d(impl.m_definitionOffset);
  filer->wrVector3d(impl.m_definitionDirection);
  filer->wrPoint3d(impl.m_definedPosition);
  filer->wrInt32(impl.m_reserved);
  if (CJbCustBlockFormatVersion::IsAtLeast(graph, 0, 3)) filer->wrBool(impl.m_cyclingEnabled);
}

bool CJbCustBlockGrip::IsFixed() const {
  return false;
}

OdGeVector3d CJbCustBlockGrip::GetDefinitionOffset() const {
  AssertReadEnabled();
  return GripImpl()->m_definitionOffset;
}

void CJbCustBlockGrip::SetDefinitionOffset(const OdGeVector3d& offset) {
  if (GripImpl()->m_definitionOffset.isEqualTo(offset)) return;
  AssertWriteEnabled();
  GripImpl()->m_definitionOffset = GripImpl()->m_currentOffset = offset;
}

OdGeVector3d CJbCustBlockGrip::GetDefinitionDirection() const {
  AssertReadEnabled();
  return GripImpl()->m_definitionDirection;
}

void CJbCustBlockGrip::SetDefinitionDirection(const OdGeVector3d& direction) {
  if (GripImpl()->m_definitionDirection.isEqualTo(direction)) return;
  AssertWriteEnabled();
  GripImpl()->m_definitionDirection = GripImpl()->m_currentDirection = direction;
}

OdGePoint3d CJbCustBlockGrip::GetDefindedPosition() const {
  AssertReadEnabled();
  return GripImpl()->m_definedPosition;
}

void CJbCustBlockGrip::SetDefindedPosition(const OdGePoint3d& point) {
  if (GripImpl()->m_definedPosition.isEqualTo(point)) return;
  AssertWriteEnabled();
  GripImpl()->m_definedPosition = point;
  SetCurrentPosition(point);
}

bool CJbCustBlockGrip::IsInsertionPointCyclingEnabled() const {
  AssertReadEnabled();
  return GripImpl()->m_cyclingEnabled;
}

void CJbCustBlockGrip::SetInsertionPointCyclingEnabled(bool enabled) {
  if (GripImpl()->m_cyclingEnabled == enabled) return;
  AssertWriteEnabled();
  GripImpl()->m_cyclingEnabled = enabled;
}

OdGeVector3d CJbCustBlockGrip::GetCurrentOffset() const {
  AssertReadEnabled();
  return GripImpl()->m_currentOffset;
}

void CJbCustBlockGrip::SetCurrentOffset(const OdGeVector3d& offset) {
  AssertReadEnabled();
  GripImpl()->m_currentOffset = offset;
}

OdGeVector3d CJbCustBlockGrip::GetCurrentDirection() const {
  AssertReadEnabled();
  return GripImpl()->m_currentDirection;
}

void CJbCustBlockGrip::SetCurrentDirection(const OdGeVector3d& direction) {
  AssertReadEnabled();
  GripImpl()->m_currentDirection = direction;
}

OdGePoint3d CJbCustBlockGrip::GetCurrentPosition() const {
  AssertReadEnabled();
  return GripImpl()->m_currentPosition;
}

void CJbCustBlockGrip::SetCurrentPosition(const OdGePoint3d& point) {
  AssertReadEnabled();
  GripImpl()->m_currentPosition = GripImpl()->m_updatedPosition = point;
}

OdGePoint3d CJbCustBlockGrip::GetUpdatedPosition() const {
  AssertReadEnabled();
  return GripImpl()->m_updatedPosition;
}

bool CJbCustBlockGrip::GathersCyclingPoints() const {
  return false;
}

void CJbCustBlockGrip::SetUpdatedPosition(const OdGePoint3d& point) {
  AssertReadEnabled();
  GripImpl()->m_updatedPosition = point;
}

OdGePoint3d CJbCustBlockGrip::GetDisplayPosition() const {
  AssertReadEnabled();
  return GripImpl()->m_currentPosition + GripImpl()->m_currentOffset;
}

void CJbCustBlockGrip::SetDisplayPosition(const OdGePoint3d& point) {
  AssertReadEnabled();
  GripImpl()->m_updatedPosition = point - GripImpl()->m_currentOffset;
}

OdGeVector3d CJbCustBlockGrip::GetOffset() const {
  AssertReadEnabled();
  return GripImpl()->m_updatedPosition - GripImpl()->m_currentPosition;
}

int CJbCustBlockGrip::GetParameter(unsigned* pointIndex) const {
  AssertReadEnabled();
  const CJbCustBlockGripImpl& impl = *GripImpl();
  if (!impl.m_graph) return 0;
  for (int id : impl.m_outConnections) {
    const CJbCustBlockParameterPtr parameter =
        CJbCustBlockParameter::cast(impl.m_graph->GetNode(id).get());
    if (parameter.isNull()) continue;
    for (unsigned i = 0; i < parameter->GetPointCount(); ++i) {
      if (parameter->GetGrip(i) != impl.m_elementId) continue;
      if (pointIndex) *pointIndex = i;
      return id;
    }
  }
  return 0;
}
