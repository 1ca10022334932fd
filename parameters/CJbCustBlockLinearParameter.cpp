// A parameter whose value is the distance between its two points.
#include "parameters/CJbCustBlockLinearParameter.h"

#include <cmath>

#include "parameters/CJbCustBlockLinearParameterImpl.h"
#include "parameters/grips/CJbCustBlockGrip.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockLinearParameter, "JbCustBlockLinearParameter",
                               CJbCustBlock2PointParameter)

CJbCustBlockLinearParameter::CJbCustBlockLinearParameter()
    : CJbCustBlock2PointParameter(new CJbCustBlockLinearParameterImpl) {}

CJbCustBlockLinearParameter::~CJbCustBlockLinearParameter() = default;

CJbCustBlockLinearParameterImpl* CJbCustBlockLinearParameter::LinearImpl() const {
  return static_cast<CJbCustBlockLinearParameterImpl*>(TwoPointImpl());
}

OdString CJbCustBlockLinearParameter::GetBaseName() const {
  return odTranslate("custblock_element", "Linear");
}

void CJbCustBlockLinearParameter::FollowGrip(unsigned k) {
  const CJbCustBlockGripPtr grip = CJbCustBlockGrip::cast(GripNode(k).get());
  if (grip.isNull()) return;
  CJbCustBlockLinearParameterImpl& impl = *LinearImpl();
  const OdGeVector3d u = impl.GetDirection(CJbCustBlock2PointParameterImpl::kUpdated);
  const OdGeVector3d along = u * grip->GetOffset().dotProduct(u);
  if (along.isZeroLength()) return;
  OdGePoint3d& moved = impl.m_points[k].updated;
  OdGePoint3d& other = impl.m_points[1 - k].updated;
  const OdGePoint3d base =
      impl.m_basePosition == kStartPoint ? other : other + (moved - other) * 0.5;
  const OdGeVector3d w = moved - base;
  if (w.dotProduct(w + along) <= 0.0) return;
  moved += along;
  if (impl.m_basePosition == kMidpoint) other -= along;
}

bool CJbCustBlockLinearParameter::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlock2PointParameter::Evaluate(context)) return false;
  FollowGrip(0);
  FollowGrip(1);
  CJbCustBlockLinearParameterImpl& impl = *LinearImpl();
  const double snapped = impl.m_valueInfos[0]->GetClosestValue(GetDistance(0), this);
  if (impl.m_basePosition == kMidpoint) {
    impl.PlaceLength(snapped);
    return true;
  }
  // The point that did not move stays.
  auto& start = impl.m_points[0];
  auto& end = impl.m_points[1];
  const bool endStayed = end.updated.isEqualTo(end.current);
  const OdGeVector3d u = impl.GetDirection(CJbCustBlock2PointParameterImpl::kUpdated);
  if (endStayed)
    start.updated = end.updated - u * snapped;
  else
    end.updated = start.updated + u * snapped;
  return true;
}

OdResBufPtr CJbCustBlockLinearParameter::GetValue(unsigned index) const {
  if (index != 0) return CJbCustBlock2PointParameter::GetValue(index);
  return OdResBuf::newRb(OdResBuf::kRtDouble, GetDistance(0));
}

bool CJbCustBlockLinearParameter::SetValue(unsigned index, const OdResBufPtr& value) {
  if (CJbCustBlock2PointParameter::SetValue(index, value)) return true;
  if (index != 0 || value.isNull() || value->restype() != OdResBuf::kRtDouble ||
      !std::isfinite(value->getDouble()))
    return false;
  AssertWriteEnabled();
  LinearImpl()->PlaceLength(value->getDouble());
  return true;
}

OdResult CJbCustBlockLinearParameter::dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) {
  const OdResult result = CJbCustBlock2PointParameter::dwgInFields(filer, graph);
  if (result != eOk) return result;
  try {
    const int position = filer->rdInt32();
    if (position != kStartPoint && position != kMidpoint) return eDwgObjectImproperlyRead;
    LinearImpl()->m_basePosition = position;
  } catch (const OdError& error) {
    return error.code();
  }
  return eOk;
}

void CJbCustBlockLinearParameter::dwgOutFields(OdDbDwgFiler* filer,
                                               const CJbDbCustBlockGraph* graph) const {
  CJbCustBlock2PointParameter::dwgOutFields(filer, graph);
  filer->wrInt32(LinearImpl()->m_basePosition);
}

CJbCustBlockLinearParameter::BasePointPosition CJbCustBlockLinearParameter::GetBasePosition()
    const {
  AssertReadEnabled();
  return static_cast<BasePointPosition>(LinearImpl()->m_basePosition);
}

void CJbCustBlockLinearParameter::SetBasePosition(BasePointPosition position) {
  if (LinearImpl()->m_basePosition == position) return;
  AssertWriteEnabled();
  LinearImpl()->m_basePosition = position;
}
