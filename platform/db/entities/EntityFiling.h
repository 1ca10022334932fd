// Helpers shared by the entity kinds: DXF angles kept in degrees, points kept in the object
// coordinate system of the entity's normal, subclass markers, and entity properties carried over
// to a stand-in of another kind.
#pragma once

#include <string_view>

#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeVector3d.h"

class OdDbDxfFiler;
class OdDbEntity;
class OdDbObject;

class EntityFiling {
 public:
  static void wrAngleDegrees(OdDbDxfFiler* filer, int code, double radians);
  static double rdAngleDegrees(OdDbDxfFiler* filer);
  // World to object coordinates and back for a plane normal; the Z axis keeps identity.
  static OdGePoint3d toOcs(const OdGeVector3d& normal, const OdGePoint3d& world);
  static OdGePoint3d toWcs(const OdGeVector3d& normal, const OdGePoint3d& ocs);
  // Reads a normal; a zero vector read from a file falls back to +Z.
  static OdGeVector3d rdNormal(OdDbDxfFiler* filer);
  // Consumes the subclass marker; raises eBadDxfSequence naming the object and the position
  // when the next item is not that marker.
  static void requireSubclass(OdDbDxfFiler* filer, const OdDbObject* object, std::string_view name);
  // Gives an entity made to stand in for another (a circle's ellipse) the source's layer, color,
  // linetype, line weight and visibility.
  static void copyProperties(const OdDbEntity* source, OdDbEntity* target);
};
