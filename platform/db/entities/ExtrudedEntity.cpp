// Normal and thickness of the extruded entity kinds.
#include "platform/db/entities/ExtrudedEntity.h"

double ExtrudedEntity::thickness() const {
  assertReadEnabled();
  return m_thickness;
}

void ExtrudedEntity::setThickness(double thickness) {
  assertWriteEnabled();
  m_thickness = thickness;
}

OdGeVector3d ExtrudedEntity::normal() const {
  assertReadEnabled();
  return m_normal;
}

void ExtrudedEntity::setNormal(const OdGeVector3d& normal) {
  if (normal.isZeroLength()) throw OdError(eInvalidInput, describe().str() + ": a zero normal");
  assertWriteEnabled();
  m_normal = normal.normal();
}
