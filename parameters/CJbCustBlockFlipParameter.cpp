// A parameter that mirrors a block reference across its reflection line, or not.
#include "parameters/CJbCustBlockFlipParameter.h"

#include "parameters/CJbCustBlockFlipParameterImpl.h"
#include "parameters/grips/CJbCustBlockFlipGrip.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/ge/OdGeConstants.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockFlipParameter, "JbCustBlockFlipParameter",
                               CJbCustBlockParameter)

namespace {
// The unit direction of a reflection line; the X axis when it has none in the plane.
OdGeVector3d lineDirection(const OdGePoint3d& start, const OdGePoint3d& end) {
  const OdGeVector3d line = end - start;
  if (line.isZeroLength() || line.isParallelTo(OdGeVector3d::kZAxis)) return OdGeVector3d::kXAxis;
  return line.normal();
}
}  // namespace

CJbCustBlockFlipParameter::CJbCustBlockFlipParameter()
    : CJbCustBlockParameter(new CJbCustBlockFlipParameterImpl) {}

CJbCustBlockFlipParameter::~CJbCustBlockFlipParameter() = default;

CJbCustBlockFlipParameterImpl* CJbCustBlockFlipParameter::FlipImpl() const {
  return static_cast<CJbCustBlockFlipParameterImpl*>(ParameterImpl());
}

OdString CJbCustBlockFlipParameter::GetBaseName() const {
  return odTranslate("custblock_element", "Mirror");
}

bool CJbCustBlockFlipParameter::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockParameter::Evaluate(context)) return false;
  // The click stays on the grip until the end of the evaluation: one click, one toggle.
  const CJbCustBlockFlipGripPtr grip = CJbCustBlockFlipGrip::cast(GripNode(0).get());
  if (!grip.isNull() && grip->IsFlipped())
    FlipImpl()->m_updatedFlipped = !FlipImpl()->m_updatedFlipped;
  return true;
}

bool CJbCustBlockFlipParameter::EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockParameter::EndEvaluate(context)) return false;
  FlipImpl()->m_currentFlipped = FlipImpl()->m_updatedFlipped;
  const CJbCustBlockFlipGripPtr grip = CJbCustBlockFlipGrip::cast(GripNode(0).get());
  if (grip.isNull()) return true;
  grip->SetFlipped(false);
  TurnGrip(*grip);
  return true;
}

bool CJbCustBlockFlipParameter::Transform(const OdGeMatrix3d& matrix, bool keepUpdated) {
  if (!CJbCustBlockParameter::Transform(matrix, keepUpdated)) return false;
  const CJbCustBlockFlipGripPtr grip = CJbCustBlockFlipGrip::cast(GripNode(0).get());
  if (!grip.isNull()) TurnGrip(*grip);
  return true;
}

void CJbCustBlockFlipParameter::TurnGrip(CJbCustBlockFlipGrip& grip) const {
  const CJbCustBlockFlipParameterImpl& impl = *FlipImpl();
  const OdGeVector3d line = lineDirection(impl.m_points[0].updated, impl.m_points[1].updated);
  const double quarterTurns = impl.m_currentFlipped ? 3.0 : 1.0;
  grip.SetCurrentDirection(
      OdGeVector3d(line).rotateBy(quarterTurns * OdGeConstants::kHalfPi, OdGeVector3d::kZAxis));
  // The authored offset turns with the line, then takes the mirror.
  const OdGeVector3d definedLine =
      lineDirection(impl.m_points[0].defined, impl.m_points[1].defined);
  OdGeVector3d offset = grip.GetDefinitionOffset();
  offset.rotateBy(definedLine.angleTo(line, OdGeVector3d::kZAxis), OdGeVector3d::kZAxis);
  if (impl.m_currentFlipped) offset.mirror(line.crossProduct(OdGeVector3d::kZAxis));
  grip.SetCurrentOffset(offset);
}

bool CJbCustBlockFlipParameter::Reset(CJbDbCustBlockGraphEvaluationContext* context) {
  FlipImpl()->m_updatedFlipped = false;
  return CJbCustBlockParameter::Reset(context);
}

bool CJbCustBlockFlipParameter::LoadInstance(OdResBufPtr& cursor,
                                             CJbDbCustBlockGraphInstanceContext* context) {
  if (!CJbCustBlockParameter::LoadInstance(cursor, context)) return false;
  if (cursor.isNull() || cursor->restype() != OdResBuf::kRtInt32) return false;
  // The current state stays, so that the loaded one is committed by an evaluation.
  FlipImpl()->m_updatedFlipped = cursor->getInt32() != 0;
  cursor = cursor->next();
  return true;
}

OdResBufPtr CJbCustBlockFlipParameter::SaveInstance(CJbDbCustBlockGraphInstanceContext* context) {
  OdResBufPtr chain = CJbCustBlockParameter::SaveInstance(context);
  chain->last()->setNext(
      OdResBuf::newRb(OdResBuf::kRtInt32, static_cast<int>(FlipImpl()->m_currentFlipped ? 1 : 0)));
  return chain;
}

bool CJbCustBlockFlipParameter::NeedEvaluate() const {
  AssertReadEnabled();
  return FlipImpl()->m_currentFlipped != FlipImpl()->m_updatedFlipped;
}

OdResult CJbCustBlockFlipParameter::dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) {
  const OdResult result = CJbCustBlockParameter::dwgInFields(filer, graph);
  if (result != eOk) return result;
  try {
    FlipImpl()->m_flippedStateName = filer->rdString();
    FlipImpl()->m_notFlippedStateName = filer->rdString();
  } catch (const OdError& error) {
    return error.code();
  }
  return eOk;
}

void CJbCustBlockFlipParameter::dwgOutFields(OdDbDwgFiler* filer,
                                             const CJbDbCustBlockGraph* graph) const {
  CJbCustBlockParameter::dwgOutFields(filer, graph);
  filer->wrString(FlipImpl()->m_flippedStateName);
  filer->wrString(FlipImpl()->m_notFlippedStateName);
}

OdResBufPtr CJbCustBlockFlipParameter::GetValue(unsigned index) const {
  if (index != 0) return CJbCustBlockParameter::GetValue(index);
  return OdResBuf::newRb(OdResBuf::kRtInt32, static_cast<int>(IsUpdatedFlipped() ? 1 : 0));
}

bool CJbCustBlockFlipParameter::SetValue(unsigned index, const OdResBufPtr& value) {
  if (CJbCustBlockParameter::SetValue(index, value)) return true;
  if (index != 0 || value.isNull() || value->restype() != OdResBuf::kRtInt32) return false;
  AssertWriteEnabled();
  FlipImpl()->m_updatedFlipped = value->getInt32() != 0;
  return true;
}

bool CJbCustBlockFlipParameter::IsCurrentFlipped() const {
  AssertReadEnabled();
  return FlipImpl()->m_currentFlipped;
}

bool CJbCustBlockFlipParameter::IsUpdatedFlipped() const {
  AssertReadEnabled();
  return FlipImpl()->m_updatedFlipped;
}

void CJbCustBlockFlipParameter::SetCurrentFlipped(bool flipped) {
  AssertReadEnabled();
  FlipImpl()->m_currentFlipped = flipped;
}

void CJbCustBlockFlipParameter::SetUpdatedFlipped(bool flipped) {
  AssertReadEnabled();
  FlipImpl()->m_updatedFlipped = flipped;
}

const OdString& CJbCustBlockFlipParameter::GetFlippedStateName() const {
  AssertReadEnabled();
  return FlipImpl()->m_flippedStateName;
}

void CJbCustBlockFlipParameter::SetFlippedStateName(const OdString& name) {
  if (FlipImpl()->m_flippedStateName == name) return;
  AssertWriteEnabled();
  FlipImpl()->m_flippedStateName = name;
}

const OdString& CJbCustBlockFlipParameter::GetNotFlippedStateName() const {
  AssertReadEnabled();
  return FlipImpl()->m_notFlippedStateName;
}

void CJbCustBlockFlipParameter::SetNotFlippedStateName(const OdString& name) {
  if (FlipImpl()->m_notFlippedStateName == name) return;
  AssertWriteEnabled();
  FlipImpl()->m_notFlippedStateName = name;
}
