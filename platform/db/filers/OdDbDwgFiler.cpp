// Binary filer: geometric values as coordinates, ids by kind.
#include "platform/db/filers/OdDbDwgFiler.h"

#include "platform/ge/OdGePoint2d.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeScale3d.h"
#include "platform/ge/OdGeVector2d.h"
#include "platform/ge/OdGeVector3d.h"
#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbDwgFiler, OdRxObject)

OdGePoint2d OdDbDwgFiler::rdPoint2d() {
  const double x = rdDouble();
  return OdGePoint2d(x, rdDouble());
}
OdGePoint3d OdDbDwgFiler::rdPoint3d() {
  const double x = rdDouble();
  const double y = rdDouble();
  return OdGePoint3d(x, y, rdDouble());
}
OdGeVector2d OdDbDwgFiler::rdVector2d() {
  const double x = rdDouble();
  return OdGeVector2d(x, rdDouble());
}
OdGeVector3d OdDbDwgFiler::rdVector3d() {
  const double x = rdDouble();
  const double y = rdDouble();
  return OdGeVector3d(x, y, rdDouble());
}
OdGeScale3d OdDbDwgFiler::rdScale3d() {
  const double x = rdDouble();
  const double y = rdDouble();
  return OdGeScale3d(x, y, rdDouble());
}
void OdDbDwgFiler::wrPoint2d(const OdGePoint2d& value) {
  wrDouble(value.x);
  wrDouble(value.y);
}
void OdDbDwgFiler::wrPoint3d(const OdGePoint3d& value) {
  wrDouble(value.x);
  wrDouble(value.y);
  wrDouble(value.z);
}
void OdDbDwgFiler::wrVector2d(const OdGeVector2d& value) {
  wrDouble(value.x);
  wrDouble(value.y);
}
void OdDbDwgFiler::wrVector3d(const OdGeVector3d& value) {
  wrDouble(value.x);
  wrDouble(value.y);
  wrDouble(value.z);
}
void OdDbDwgFiler::wrScale3d(const OdGeScale3d& value) {
  wrDouble(value.sx);
  wrDouble(value.sy);
  wrDouble(value.sz);
}

OdDbObjectId OdDbDwgFiler::rdId(OdDb::ReferenceType type) {
  switch (type) {
    case OdDb::kSoftPointerRef:
      return rdSoftPointerId();
    case OdDb::kHardPointerRef:
      return rdHardPointerId();
    case OdDb::kSoftOwnershipRef:
      return rdSoftOwnershipId();
    default:
      return rdHardOwnershipId();
  }
}

void OdDbDwgFiler::wrId(const OdDbObjectId& id, OdDb::ReferenceType type) {
  switch (type) {
    case OdDb::kSoftPointerRef:
      wrSoftPointerId(id);
      break;
    case OdDb::kHardPointerRef:
      wrHardPointerId(id);
      break;
    case OdDb::kSoftOwnershipRef:
      wrSoftOwnershipId(id);
      break;
    default:
      wrHardOwnershipId(id);
      break;
  }
}
