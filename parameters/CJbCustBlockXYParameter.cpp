// A parameter spanning a rectangle from a base point to a corner.
#include "parameters/CJbCustBlockXYParameter.h"

#include <cmath>

#include "parameters/CJbCustBlockXYParameterImpl.h"
#include "parameters/grips/CJbCustBlockGrip.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockXYParameter, "JbCustBlockXYParameter",
                               CJbCustBlockParameter)

namespace {
using XY = CJbCustBlockXYParameterImpl;
using Record = CJbCustBlockParameterImpl::PointRecord;
}  // namespace

CJbCustBlockXYParameter::CJbCustBlockXYParameter()
    : CJbCustBlockParameter(new CJbCustBlockXYParameterImpl) {}

CJbCustBlockXYParameter::~CJbCustBlockXYParameter() = default;

CJbCustBlockXYParameterImpl* CJbCustBlockXYParameter::XYImpl() const {
  return static_cast<CJbCustBlockXYParameterImpl*>(ParameterImpl());
}

OdString CJbCustBlockXYParameter::GetBaseName() const {
  return odTranslate("custblock_element", "XY");
}

bool CJbCustBlockXYParameter::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  if (!CJbCustBlockParameter::Evaluate(context)) return false;
  XY& impl = *XYImpl();
  for (unsigned k = 0; k < impl.m_points.size(); ++k) {
    const CJbCustBlockGripPtr grip = CJbCustBlockGrip::cast(GripNode(k).get());
    if (!grip.isNull() && !grip->GetOffset().isZeroLength())
      SetUpdatedPosition(k, impl.m_points[k].updated + grip->GetOffset());
  }
  Record& base = impl.m_points[XY::kBase];
  Record& corner = impl.m_points[XY::kCorner];
  // A base moved alone is placed back from the corner, which stays.
  const bool baseAlone =
      corner.updated.isEqualTo(corner.current) && !base.updated.isEqualTo(base.current);
  const OdGePoint3d fixedCorner = corner.updated;
  for (int axis = 0; axis < 2; ++axis) {
    const double distance = GetValue(static_cast<unsigned>(axis))->getDouble();
    impl.PlaceDistance(
        axis, impl.m_valueInfos[static_cast<std::size_t>(axis)]->GetClosestValue(distance, this));
  }
  if (baseAlone) {
    const OdGeVector3d span = corner.updated - base.updated;
    base.updated = fixedCorner - span;
    corner.updated = fixedCorner;
    impl.DeriveCorners(&Record::updated);
  }
  return true;
}

bool CJbCustBlockXYParameter::Transform(const OdGeMatrix3d& matrix, bool keepUpdated) {
  const bool result = CJbCustBlockParameter::Transform(matrix, keepUpdated);
  XYImpl()->DeriveCorners(&Record::updated);
  XYImpl()->DeriveCorners(&Record::current);
  return result;
}

OdResBufPtr CJbCustBlockXYParameter::GetValue(unsigned index) const {
  if (index > kYDistanceValue) return CJbCustBlockParameter::GetValue(index);
  const OdGeVector3d span = GetUpdatedPosition(XY::kCorner) - GetUpdatedPosition(XY::kBase);
  return OdResBuf::newRb(OdResBuf::kRtDouble,
                         std::fabs(index == kXDistanceValue ? span.x : span.y));
}

bool CJbCustBlockXYParameter::SetValue(unsigned index, const OdResBufPtr& value) {
  if (CJbCustBlockParameter::SetValue(index, value)) return true;
  if (index > kYDistanceValue || value.isNull() || value->restype() != OdResBuf::kRtDouble ||
      !std::isfinite(value->getDouble()))
    return false;
  AssertWriteEnabled();
  XYImpl()->PlaceDistance(static_cast<int>(index), value->getDouble());
  return true;
}

void CJbCustBlockXYParameter::SetDefinedPosition(unsigned index, const OdGePoint3d& point) {
  XY& impl = *XYImpl();
  if (!impl.HasPoint(index)) return;
  if (index == XY::kBase) CJbCustBlockParameter::SetDefinedPosition(XY::kBase, point);
  CJbCustBlockParameter::SetDefinedPosition(XY::kCorner,
                                            impl.CornerFor(index, point, &Record::defined));
  const OdGePoint3d& base = impl.m_points[XY::kBase].defined;
  const OdGePoint3d& corner = impl.m_points[XY::kCorner].defined;
  CJbCustBlockParameter::SetDefinedPosition(XY::kXCorner, OdGePoint3d(corner.x, base.y, base.z));
  CJbCustBlockParameter::SetDefinedPosition(XY::kYCorner, OdGePoint3d(base.x, corner.y, base.z));
}

void CJbCustBlockXYParameter::SetCurrentPosition(unsigned index, const OdGePoint3d& point) {
  XY& impl = *XYImpl();
  if (!impl.HasPoint(index)) return;
  if (index == XY::kBase)
    impl.m_points[XY::kBase].current = point;
  else
    impl.m_points[XY::kCorner].current = impl.CornerFor(index, point, &Record::current);
  impl.DeriveCorners(&Record::current);
  SetUpdatedPosition(index, point);
}

void CJbCustBlockXYParameter::SetUpdatedPosition(unsigned index, const OdGePoint3d& point) {
  XY& impl = *XYImpl();
  if (!impl.HasPoint(index)) return;
  if (index == XY::kBase)
    impl.m_points[XY::kBase].updated = point;
  else
    impl.m_points[XY::kCorner].updated = impl.CornerFor(index, point, &Record::updated);
  impl.DeriveCorners(&Record::updated);
}
