// A parameter whose value is an angle about its base point.
#include "parameters/CJbCustBlockRotationParameter.h"

#include <cmath>

#include "parameters/CJbCustBlockRotationParameterImpl.h"
#include "parameters/grips/CJbCustBlockGrip.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockRotationParameter, "JbCustBlockRotationParameter",
                               CJbCustBlockParameter)

namespace {
using Rotation = CJbCustBlockRotationParameterImpl;
}

CJbCustBlockRotationParameter::CJbCustBlockRotationParameter()
    : CJbCustBlockParameter(new CJbCustBlockRotationParameterImpl) {}

CJbCustBlockRotationParameter::~CJbCustBlockRotationParameter() = default;

CJbCustBlockRotationParameterImpl* CJbCustBlockRotationParameter::RotationImpl() const {
  return static_cast<CJbCustBlockRotationParameterImpl*>(ParameterImpl());
}

OdString CJbCustBlockRotationParameter::GetBaseName() const {
  return odTranslate("custblock_element", "Rotation");
}

bool CJbCustBlockRotationParameter::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockParameter::Evaluate(context)) return false;
  Rotation& impl = *RotationImpl();
  const CJbCustBlockGripPtr grip = CJbCustBlockGrip::cast(GripNode(Rotation::kRotated).get());
  OdGePoint3d& rotated = impl.m_points[Rotation::kRotated].updated;
  const OdGePoint3d beforeDrag = rotated;
  if (!grip.isNull()) rotated += grip->GetOffset();
  const double angle = impl.UpdatedAngle();
  // The drag turns the point; its distance from the base stays.
  rotated = beforeDrag;
  impl.PlaceAngle(impl.m_valueInfos[0]->GetClosestValue(angle, this));
  return true;
}

bool CJbCustBlockRotationParameter::EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  const bool result = CJbCustBlockParameter::EndEvaluate(context);
  RotationImpl()->m_currentNormal = RotationImpl()->m_updatedNormal;
  return result;
}

bool CJbCustBlockRotationParameter::Reset(CJbDbCustBlockGraphEvaluationContext* context) {
  RotationImpl()->m_updatedNormal = OdGeVector3d::kZAxis;
  return CJbCustBlockParameter::Reset(context);
}

bool CJbCustBlockRotationParameter::Transform(const OdGeMatrix3d& matrix, bool keepUpdated) {
  if (matrix.isEqualTo(OdGeMatrix3d::kIdentity)) return true;
  Rotation& impl = *RotationImpl();
  auto turn = [&](OdGeVector3d& normal) {
    normal = (matrix * normal).normal();
    if (matrix.isMirroring()) normal.negate();
  };
  if (!keepUpdated) turn(impl.m_updatedNormal);
  if (!IsChain()) turn(impl.m_currentNormal);
  return CJbCustBlockParameter::Transform(matrix, keepUpdated);
}

bool CJbCustBlockRotationParameter::LoadInstance(OdResBufPtr& cursor,
                                                 CJbDbCustBlockGraphInstanceContext* context) {
  if (!CJbCustBlockParameter::LoadInstance(cursor, context)) return false;
  if (cursor.isNull() || cursor->restype() != OdResBuf::kRtPoint3d) return false;
  RotationImpl()->m_updatedNormal = cursor->getVector3d();
  cursor = cursor->next();
  return true;
}

OdResBufPtr CJbCustBlockRotationParameter::SaveInstance(
    CJbDbCustBlockGraphInstanceContext* context) {
  OdResBufPtr chain = CJbCustBlockParameter::SaveInstance(context);
  chain->last()->setNext(OdResBuf::newRb(OdResBuf::kRtPoint3d, RotationImpl()->m_currentNormal));
  return chain;
}

OdResBufPtr CJbCustBlockRotationParameter::GetValue(unsigned index) const {
  if (index != 0) return CJbCustBlockParameter::GetValue(index);
  AssertReadEnabled();
  return OdResBuf::newRb(OdResBuf::kRtAngle, RotationImpl()->UpdatedAngle());
}

bool CJbCustBlockRotationParameter::SetValue(unsigned index, const OdResBufPtr& value) {
  if (CJbCustBlockParameter::SetValue(index, value)) return true;
  if (index != 0 || value.isNull() ||
      (value->restype() != OdResBuf::kRtDouble && value->restype() != OdResBuf::kRtAngle) ||
      !std::isfinite(value->getDouble()))
    return false;
  AssertWriteEnabled();
  RotationImpl()->PlaceAngle(value->getDouble());
  return true;
}

OdGeVector3d CJbCustBlockRotationParameter::GetCurrentNormal() const {
  AssertReadEnabled();
  return RotationImpl()->m_currentNormal;
}

OdGeVector3d CJbCustBlockRotationParameter::GetUpdatedNormal() const {
  AssertReadEnabled();
  return RotationImpl()->m_updatedNormal;
}
