// A parameter of one point.
#include "parameters/CJbCustBlockPointParameter.h"

#include <cmath>

#include "parameters/CJbCustBlockPointParameterImpl.h"
#include "parameters/grips/CJbCustBlockGrip.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockPointParameter, "JbCustBlockPointParameter",
                               CJbCustBlockParameter)

CJbCustBlockPointParameter::CJbCustBlockPointParameter()
    : CJbCustBlockParameter(new CJbCustBlockPointParameterImpl) {}

CJbCustBlockPointParameter::~CJbCustBlockPointParameter() = default;

OdString CJbCustBlockPointParameter::GetBaseName() const {
  return odTranslate("custblock_element", "Point");
}

bool CJbCustBlockPointParameter::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockParameter::Evaluate(context)) return false;
  const CJbCustBlockGripPtr grip = CJbCustBlockGrip::cast(GripNode(0).get());
  if (!grip.isNull() && !grip->GetOffset().isZeroLength())
    SetUpdatedPosition(0, GetUpdatedPosition(0) + grip->GetOffset());
  return true;
}

OdResBufPtr CJbCustBlockPointParameter::GetValue(unsigned index) const {
  const OdGePoint3d point = GetUpdatedPosition(0);
  switch (index) {
    case kPointValue:
      return OdResBuf::newRb(OdResBuf::kRtPoint3d, point);
    case kXValue:
      return OdResBuf::newRb(OdResBuf::kRtDouble, point.x);
    case kYValue:
      return OdResBuf::newRb(OdResBuf::kRtDouble, point.y);
    default:
      return CJbCustBlockParameter::GetValue(index);
  }
}

bool CJbCustBlockPointParameter::SetValue(unsigned index, const OdResBufPtr& value) {
  if (CJbCustBlockParameter::SetValue(index, value)) return true;
  if (value.isNull() || index > kYValue) return false;
  OdGePoint3d point = GetUpdatedPosition(0);
  if (index == kPointValue) {
    if (value->restype() != OdResBuf::kRtPoint3d) return false;
    const OdGePoint3d& given = value->getPoint3d();
    if (!std::isfinite(given.x) || !std::isfinite(given.y) || !std::isfinite(given.z)) return false;
    point = given;
  } else {
    if (value->restype() != OdResBuf::kRtDouble || !std::isfinite(value->getDouble())) return false;
    (index == kXValue ? point.x : point.y) = value->getDouble();
  }
  AssertWriteEnabled();
  SetUpdatedPosition(0, point);
  return true;
}
