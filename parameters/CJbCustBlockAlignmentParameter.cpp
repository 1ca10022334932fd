// A parameter that turns a block reference to line up with the geometry under it.
#include "parameters/CJbCustBlockAlignmentParameter.h"

#include <cmath>

#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "parameters/CJbCustBlockAlignmentParameterImpl.h"
#include "parameters/grips/CJbCustBlockAlignmentGrip.h"
#include "platform/db/entities/OdDbArc.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbCircle.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeConstants.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockAlignmentParameter, "JbCustBlockAlignmentParameter",
                               CJbCustBlockParameter)

namespace {
constexpr double kTol = CJbCustBlockAlignmentParameter::kSearchTolerance;

bool lineTangent(const OdDbLine& line, const OdGePoint3d& point, OdGeVector3d& tangent) {
  const OdGeVector3d span = line.endPoint() - line.startPoint();
  const double length = span.length();
  if (length <= kTol) return false;
  const OdGeVector3d along = span / length;
  const double t = (point - line.startPoint()).dotProduct(along);
  if (t < -kTol || t > length + kTol) return false;
  if ((line.startPoint() + along * t).distanceTo(point) > kTol) return false;
  tangent = along;
  return true;
}

// Circles and arcs lying in planes parallel to the XY plane.
bool roundTangent(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                  const OdGePoint3d& point, OdGeVector3d& tangent) {
  if (!normal.isParallelTo(OdGeVector3d::kZAxis)) return false;
  const OdGeVector3d radial = point - center;
  if (std::fabs(radial.z) > kTol || std::fabs(radial.length() - radius) > kTol) return false;
  tangent = OdGeVector3d::kZAxis.crossProduct(radial).normal();
  return true;
}

bool onArcSweep(const OdDbArc& arc, const OdGePoint3d& point) {
  const OdGeVector3d radial = point - arc.center();
  double angle = std::atan2(radial.y, radial.x);
  if (arc.normal().z < 0.0) angle = OdGeConstants::kPi - angle;
  const double sweep = OdGeAngle::normalize(arc.endAngle() - arc.startAngle());
  return OdGeAngle::normalize(angle - arc.startAngle()) <= sweep + kTol / arc.radius();
}
}  // namespace

CJbCustBlockAlignmentParameter::CJbCustBlockAlignmentParameter()
    : CJbCustBlockParameter(new CJbCustBlockAlignmentParameterImpl) {}

CJbCustBlockAlignmentParameter::~CJbCustBlockAlignmentParameter() = default;

CJbCustBlockAlignmentParameterImpl* CJbCustBlockAlignmentParameter::AlignmentImpl() const {
  return static_cast<CJbCustBlockAlignmentParameterImpl*>(ParameterImpl());
}

OdString CJbCustBlockAlignmentParameter::GetBaseName() const {
  return odTranslate("custblock_element", "Alignment");
}

bool CJbCustBlockAlignmentParameter::FindTangent(const OdDbObjectId& space,
                                                 const OdGePoint3d& point, OdGeVector3d& tangent) {
  const OdSmartPtr<OdDbBlockTableRecord> record =
      OdDbBlockTableRecord::cast(space.safeOpenObject().get());
  if (record.isNull()) return false;
  for (OdDbObjectIteratorPtr it = record->newIterator(); !it->done(); it->step()) {
    const OdDbObjectPtr entity = it->getObject();
    if (const OdSmartPtr<OdDbLine> line = OdDbLine::cast(entity.get())) {
      if (lineTangent(*line, point, tangent)) return true;
    } else if (const OdSmartPtr<OdDbArc> arc = OdDbArc::cast(entity.get())) {
      if (onArcSweep(*arc, point) &&
          roundTangent(arc->center(), arc->radius(), arc->normal(), point, tangent))
        return true;
    } else if (const OdSmartPtr<OdDbCircle> circle = OdDbCircle::cast(entity.get())) {
      if (roundTangent(circle->center(), circle->radius(), circle->normal(), point, tangent))
        return true;
    }
  }
  return false;
}

bool CJbCustBlockAlignmentParameter::Align(const OdDbObjectId& referenceId) const {
  // The edit that evaluates the reference may hold it open for write already.
  OdDbObjectPtr object = referenceId.openObjectShared(OdDb::kForRead);
  if (object.isNull()) object = referenceId.safeOpenObject(OdDb::kForRead);
  OdSmartPtr<OdDbBlockReference> reference = OdDbBlockReference::cast(object.get());
  if (reference.isNull()) return false;
  const OdGeMatrix3d toWorld = reference->blockTransform();
  const CJbCustBlockAlignmentParameterImpl& impl = *AlignmentImpl();
  const OdGePoint3d base = toWorld * impl.m_points[0].updated;
  OdGeVector3d direction = toWorld * (impl.m_points[1].updated - impl.m_points[0].updated);
  direction.z = 0.0;
  OdGeVector3d tangent;
  if (direction.isZeroLength() || !FindTangent(reference->ownerId(), base, tangent)) return false;
  if (impl.m_perpendicular) tangent = OdGeVector3d::kZAxis.crossProduct(tangent);
  // Either sense of the geometry will do: the smaller turn wins.
  double angle = direction.angleTo(tangent, OdGeVector3d::kZAxis);
  if (angle > OdGeConstants::kHalfPi && angle < 3 * OdGeConstants::kHalfPi)
    angle -= OdGeConstants::kPi;
  if (angle > OdGeConstants::kPi) angle -= OdGeConstants::k2Pi;
  if (std::fabs(angle) <= OdGeConstants::kTolerance) return true;
  reference->upgradeOpen();
  reference->transformBy(OdGeMatrix3d::rotation(angle, OdGeVector3d::kZAxis, base));
  return true;
}

bool CJbCustBlockAlignmentParameter::EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  const bool result = CJbCustBlockParameter::EndEvaluate(context);
  const CJbCustBlockAlignmentGripPtr grip = CJbCustBlockAlignmentGrip::cast(GripNode(0).get());
  if (grip.isNull() || !grip->NeedEvaluate()) return result;
  const int requested = grip->GetState();
  grip->ResetState();
  if (requested == 0 || !context || !context->ModifyBlockReferences()) return result;
  AlignmentImpl()->m_updatedState = Align(context->GetCurrentBlockId()) ? 1 : 0;
  return result;
}

bool CJbCustBlockAlignmentParameter::IsValid() const {
  return true;
}

bool CJbCustBlockAlignmentParameter::IsUnique() const {
  return true;
}

OdResult CJbCustBlockAlignmentParameter::dwgInFields(OdDbDwgFiler* filer,
                                                     CJbDbCustBlockGraph* graph) {
  const OdResult result = CJbCustBlockParameter::dwgInFields(filer, graph);
  if (result != eOk) return result;
  try {
    AlignmentImpl()->m_perpendicular = filer->rdBool();
  } catch (const OdError& error) {
    return error.code();
  }
  return eOk;
}

void CJbCustBlockAlignmentParameter::dwgOutFields(OdDbDwgFiler* filer,
                                                  const CJbDbCustBlockGraph* graph) const {
  CJbCustBlockParameter::dwgOutFields(filer, graph);
  filer->wrBool(AlignmentImpl()->m_perpendicular);
}

int CJbCustBlockAlignmentParameter::GetUpdatedState() const {
  AssertReadEnabled();
  return AlignmentImpl()->m_updatedState;
}

bool CJbCustBlockAlignmentParameter::IsPerpendicular() const {
  AssertReadEnabled();
  return AlignmentImpl()->m_perpendicular;
}

void CJbCustBlockAlignmentParameter::SetPerpendicular(bool perpendicular) {
  if (AlignmentImpl()->m_perpendicular == perpendicular) return;
  AssertWriteEnabled();
  AlignmentImpl()->m_perpendicular = perpendicular;
}
