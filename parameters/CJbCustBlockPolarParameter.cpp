// A parameter of a distance and an angle between two points.
#include "parameters/CJbCustBlockPolarParameter.h"

#include <cmath>

#include "parameters/CJbCustBlockPolarParameterImpl.h"
#include "parameters/grips/CJbCustBlockGrip.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockPolarParameter, "JbCustBlockPolarParameter",
                               CJbCustBlock2PointParameter)

namespace {
using Impl = CJbCustBlock2PointParameterImpl;

bool isFiniteReal(const OdResBufPtr& value, bool angleAllowed) {
  if (value.isNull()) return false;
  const int type = value->restype();
  if (type != OdResBuf::kRtDouble && !(angleAllowed && type == OdResBuf::kRtAngle)) return false;
  return std::isfinite(value->getDouble());
}

// A normal that can be turned about: the Z axis stands in for a degenerate one.
OdGeVector3d usableNormal(const OdGeVector3d& normal) {
  return normal.isZeroLength() ? OdGeVector3d::kZAxis : normal;
}
}  // namespace

CJbCustBlockPolarParameter::CJbCustBlockPolarParameter()
    : CJbCustBlock2PointParameter(new CJbCustBlockPolarParameterImpl) {}

CJbCustBlockPolarParameter::~CJbCustBlockPolarParameter() = default;

CJbCustBlockPolarParameterImpl* CJbCustBlockPolarParameter::PolarImpl() const {
  return static_cast<CJbCustBlockPolarParameterImpl*>(TwoPointImpl());
}

OdString CJbCustBlockPolarParameter::GetBaseName() const {
  return odTranslate("custblock_element", "Polar");
}

void CJbCustBlockPolarParameter::PlaceEnd(double distance, double angle) {
  CJbCustBlockPolarParameterImpl& impl = *PolarImpl();
  OdGePoint3d& start = impl.m_points[0].updated;
  OdGePoint3d& end = impl.m_points[1].updated;
  if (impl.m_updatedReference.isZeroLength()) {
    end = start;
    return;
  }
  OdGeVector3d direction = impl.m_updatedReference.normal();
  direction.rotateBy(angle, usableNormal(impl.m_updatedNormal));
  end = start + direction * distance;
}

bool CJbCustBlockPolarParameter::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlock2PointParameter::Evaluate(context)) return false;
  CJbCustBlockPolarParameterImpl& impl = *PolarImpl();
  for (unsigned k = 0; k < 2; ++k) {
    const CJbCustBlockGripPtr grip = CJbCustBlockGrip::cast(GripNode(k).get());
    if (!grip.isNull()) impl.m_points[k].updated += grip->GetOffset();
  }
  const double distance = impl.m_valueInfos[kDistanceValue]->GetClosestValue(GetDistance(0), this);
  const double angle =
      impl.m_valueInfos[kAngleValue]->GetClosestValue(GetValue(kAngleValue)->getDouble(), this);
  auto& start = impl.m_points[0];
  auto& end = impl.m_points[1];
  if (end.updated.isEqualTo(end.current) && !start.updated.isEqualTo(start.current)) {
    // The start moved alone: it is placed back from the end.
    const OdGePoint3d fixedEnd = end.updated;
    PlaceEnd(distance, angle);
    start.updated = fixedEnd - (end.updated - start.updated);
    end.updated = fixedEnd;
  } else {
    PlaceEnd(distance, angle);
  }
  return true;
}

bool CJbCustBlockPolarParameter::EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlock2PointParameter::EndEvaluate(context)) return false;
  const OdGeVector3d direction = GetDirection(Impl::kCurrent);
  for (unsigned k = 0; k < 2; ++k) {
    const CJbCustBlockGripPtr grip = CJbCustBlockGrip::cast(GripNode(k).get());
    if (!grip.isNull()) grip->SetCurrentDirection(direction);
  }
  CJbCustBlockPolarParameterImpl& impl = *PolarImpl();
  impl.m_currentReference = impl.m_updatedReference;
  impl.m_currentNormal = impl.m_updatedNormal;
  return true;
}

bool CJbCustBlockPolarParameter::Reset(CJbDbCustBlockGraphEvaluationContext* context) {
  CJbCustBlockPolarParameterImpl& impl = *PolarImpl();
  impl.m_updatedReference = OdGeVector3d::kXAxis;
  impl.m_updatedNormal = OdGeVector3d::kZAxis;
  return CJbCustBlock2PointParameter::Reset(context);
}

bool CJbCustBlockPolarParameter::Transform(const OdGeMatrix3d& matrix, bool keepUpdated) {
  if (matrix.isEqualTo(OdGeMatrix3d::kIdentity)) return true;
  CJbCustBlockPolarParameterImpl& impl = *PolarImpl();
  // A mirror reverses the sense of turning; the normal flips so that the angle keeps its value.
  auto turn = [&](OdGeVector3d& reference, OdGeVector3d& normal) {
    reference = (matrix * reference).normal();
    normal = (matrix * normal).normal();
    if (matrix.isMirroring()) normal.negate();
  };
  if (!keepUpdated) turn(impl.m_updatedReference, impl.m_updatedNormal);
  if (!IsChain()) turn(impl.m_currentReference, impl.m_currentNormal);
  return CJbCustBlock2PointParameter::Transform(matrix, keepUpdated);
}

bool CJbCustBlockPolarParameter::LoadInstance(OdResBufPtr& cursor,
                                              CJbDbCustBlockGraphInstanceContext* context) {
  if (!CJbCustBlock2PointParameter::LoadInstance(cursor, context)) return false;
  CJbCustBlockPolarParameterImpl& impl = *PolarImpl();
  for (OdGeVector3d* target : {&impl.m_updatedReference, &impl.m_updatedNormal}) {
    if (cursor.isNull() || cursor->restype() != OdResBuf::kRtPoint3d) return false;
    *target = cursor->getVector3d();
    cursor = cursor->next();
  }
  return true;
}

OdResBufPtr CJbCustBlockPolarParameter::SaveInstance(CJbDbCustBlockGraphInstanceContext* context) {
  OdResBufPtr chain = CJbCustBlock2PointParameter::SaveInstance(context);
  chain->last()
      ->setNext(OdResBuf::newRb(OdResBuf::kRtPoint3d, PolarImpl()->m_currentReference))
      ->setNext(OdResBuf::newRb(OdResBuf::kRtPoint3d, PolarImpl()->m_currentNormal));
  return chain;
}

OdResBufPtr CJbCustBlockPolarParameter::GetValue(unsigned index) const {
  if (index == kDistanceValue) return OdResBuf::newRb(OdResBuf::kRtDouble, GetDistance(0));
  if (index != kAngleValue) return CJbCustBlock2PointParameter::GetValue(index);
  const CJbCustBlockPolarParameterImpl& impl = *PolarImpl();
  double angle = 0.0;
  if (!impl.m_updatedReference.isZeroLength() && !impl.m_updatedNormal.isZeroLength())
    angle = impl.m_updatedReference.angleTo(GetDirection(0), impl.m_updatedNormal);
  return OdResBuf::newRb(OdResBuf::kRtAngle, angle);
}

bool CJbCustBlockPolarParameter::SetValue(unsigned index, const OdResBufPtr& value) {
  if (CJbCustBlock2PointParameter::SetValue(index, value)) return true;
  if (index > kAngleValue || !isFiniteReal(value, index == kAngleValue)) return false;
  AssertWriteEnabled();
  CJbCustBlockPolarParameterImpl& impl = *PolarImpl();
  if (index == kDistanceValue)
    impl.m_points[1].updated =
        impl.m_points[0].updated + GetDirection(0) * std::fabs(value->getDouble());
  else
    PlaceEnd(GetDistance(0), value->getDouble());
  return true;
}

template <class Step>
auto CJbCustBlockPolarParameter::WithDefinedReference(Step step) {
  CJbCustBlockPolarParameterImpl& impl = *PolarImpl();
  const OdGeVector3d reference = impl.m_updatedReference;
  const OdGeVector3d normal = impl.m_updatedNormal;
  impl.m_updatedReference = GetDefinedReferenceVector();
  impl.m_updatedNormal = GetDefinedNormal();
  struct Restore {
    CJbCustBlockPolarParameterImpl& impl;
    OdGeVector3d reference, normal;
    ~Restore() {
      impl.m_updatedReference = reference;
      impl.m_updatedNormal = normal;
    }
  } restore{impl, reference, normal};
  return step();
}

OdResBufPtr CJbCustBlockPolarParameter::GetDefinitionValue(unsigned index) {
  return WithDefinedReference(
      [&]() { return CJbCustBlock2PointParameter::GetDefinitionValue(index); });
}

bool CJbCustBlockPolarParameter::SetDefinitionValue(unsigned index, const OdResBufPtr& value) {
  return WithDefinedReference(
      [&]() { return CJbCustBlock2PointParameter::SetDefinitionValue(index, value); });
}

OdGeVector3d CJbCustBlockPolarParameter::GetDefinedReferenceVector() const {
  return OdGeVector3d::kXAxis;
}

OdGeVector3d CJbCustBlockPolarParameter::GetDefinedNormal() const {
  return OdGeVector3d::kZAxis;
}

OdGeVector3d CJbCustBlockPolarParameter::GetCurrentReferenceVector() const {
  AssertReadEnabled();
  return PolarImpl()->m_currentReference;
}

void CJbCustBlockPolarParameter::SetCurrentReferenceVector(const OdGeVector3d& reference) {
  AssertReadEnabled();
  PolarImpl()->m_currentReference = reference;
}

OdGeVector3d CJbCustBlockPolarParameter::GetCurrentNormal() const {
  AssertReadEnabled();
  return PolarImpl()->m_currentNormal;
}

void CJbCustBlockPolarParameter::SetCurrentNormal(const OdGeVector3d& normal) {
  AssertReadEnabled();
  PolarImpl()->m_currentNormal = normal;
}

OdGeVector3d CJbCustBlockPolarParameter::GetUpdatedReferenceVector() const {
  AssertReadEnabled();
  return PolarImpl()->m_updatedReference;
}

OdGeVector3d CJbCustBlockPolarParameter::GetUpdatedNormal() const {
  AssertReadEnabled();
  return PolarImpl()->m_updatedNormal;
}
