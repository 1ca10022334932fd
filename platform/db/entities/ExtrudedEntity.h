// The plane normal and the thickness along it that lines, points, solids, texts and polylines
// keep as plain properties; each kind files and transforms them with its own data.
#pragma once

#include "platform/db/OdDbEntity.h"

class ExtrudedEntity : public OdDbEntity {
 public:
  double thickness() const;
  void setThickness(double thickness);
  OdGeVector3d normal() const;
  // A zero normal raises eInvalidInput; any other is kept at unit length.
  void setNormal(const OdGeVector3d& normal);

 protected:
  ExtrudedEntity() = default;

  double m_thickness = 0.0;
  OdGeVector3d m_normal = OdGeVector3d::kZAxis;
};
