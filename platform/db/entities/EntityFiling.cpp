#include "platform/db/entities/EntityFiling.h"

#include <cmath>

#include "platform/db/OdDbEntity.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeMatrix3d.h"

namespace {
constexpr double kDegreesPerRadian = OdGeConstants::kDegreesPerRadian;
bool isWorldZ(const OdGeVector3d& normal) {
  return normal.isEqualTo(OdGeVector3d::kZAxis);
}
}  // namespace

void EntityFiling::wrAngleDegrees(OdDbDxfFiler* filer, int code, double radians) {
  filer->wrDouble(code, radians * kDegreesPerRadian);
}

double EntityFiling::rdAngleDegrees(OdDbDxfFiler* filer) {
  return filer->rdDouble() / kDegreesPerRadian;
}

OdGePoint3d EntityFiling::toOcs(const OdGeVector3d& normal, const OdGePoint3d& world) {
  return isWorldZ(normal) ? world : OdGeMatrix3d::worldToPlane(normal) * world;
}

OdGePoint3d EntityFiling::toWcs(const OdGeVector3d& normal, const OdGePoint3d& ocs) {
  return isWorldZ(normal) ? ocs : OdGeMatrix3d::planeToWorld(normal) * ocs;
}

OdGeVector3d EntityFiling::rdNormal(OdDbDxfFiler* filer) {
  const OdGeVector3d normal = filer->rdVector3d();
  if (normal.isZeroLength()) return OdGeVector3d::kZAxis;
  // A normal already of unit length stays bit for bit, so that rewriting a file changes nothing.
  return std::abs(normal.length() - 1.0) <= 1e-12 ? normal : normal.normal();
}

void EntityFiling::requireSubclass(OdDbDxfFiler* filer, const OdDbObject* object,
                                   std::string_view name) {
  if (!filer->atSubclassData(OdString(name))) {
    throw OdError(eBadDxfSequence, object->describe().str() + ": " + std::string(name) +
                                       " expected at " + filer->describePosition().str());
  }
}

void EntityFiling::copyProperties(const OdDbEntity* source, OdDbEntity* target) {
  if (!source->layerId().isNull()) target->setLayer(source->layerId());
  if (source->hasTrueColor())
    target->setTrueColor(source->trueColor());
  else
    target->setColorIndex(source->colorIndex());
  target->setLinetype(source->linetype());
  target->setLinetypeScale(source->linetypeScale());
  target->setLineWeight(source->lineWeight());
  target->setVisibility(source->visibility());
}
