#include "support/BlockGeometry.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/db/OdDbEntity.h"
#include "platform/db/filers/OdDbResBufDxfFiler.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/ge/OdGeExtents3d.h"
#include "platform/resbuf/OdDxfCode.h"
#include "platform/rx/OdRxClass.h"

namespace {
constexpr int kHandleCode = 5;

std::vector<OdDbEntityPtr> entitiesOf(const OdDbObjectId& blockId) {
  std::vector<OdDbEntityPtr> entities;
  const OdDbBlockTableRecordPtr block(blockId.safeOpenObject());
  for (OdDbObjectIteratorPtr it = block->newIterator(); !it->done(); it->step())
    entities.push_back(it->entity());
  return entities;
}

OdResBufPtr itemsOf(const OdDbEntity* entity) {
  const OdSmartPtr<OdDbResBufDxfFiler> filer = OdDbResBufDxfFiler::createObject(entity->database());
  entity->dxfOutFields(filer.get());
  return filer->items();
}

double sizeOf(const std::vector<OdDbEntityPtr>& entities) {
  OdGeExtents3d extents;
  for (const OdDbEntityPtr& entity : entities) {
    OdGeExtents3d own;
    if (entity->getGeomExtents(own) == eOk && own.isValidExtents()) extents.addExt(own);
  }
  return extents.isValidExtents() ? extents.minPoint().distanceTo(extents.maxPoint()) : 0;
}

// The difference of two items of one code, or a negative number when they differ in kind or in
// a value that has no tolerance.
double differenceOf(const OdResBuf& a, const OdResBuf& b) {
  // Handles and ids name objects, which differ between any two blocks.
  if (a.restype() == kHandleCode) return 0;
  switch (OdDxfCode::_getType(a.restype())) {
    case OdDxfCode::Double:
      return std::fabs(a.getDouble() - b.getDouble());
    case OdDxfCode::Point:
      return a.getPoint3d().distanceTo(b.getPoint3d());
    case OdDxfCode::String:
      return a.getString() == b.getString() ? 0 : -1;
    case OdDxfCode::Bool:
      return a.getBool() == b.getBool() ? 0 : -1;
    case OdDxfCode::Integer16:
    case OdDxfCode::Integer32:
    case OdDxfCode::Integer64:
      return a.getInt64() == b.getInt64() ? 0 : -1;
    default:
      return 0;
  }
}
}  // namespace

BlockGeometryComparison CompareBlockGeometry(const OdDbObjectId& actual,
                                             const OdDbObjectId& expected) {
  BlockGeometryComparison result;
  const std::vector<OdDbEntityPtr> ours = entitiesOf(actual);
  const std::vector<OdDbEntityPtr> theirs = entitiesOf(expected);
  result.tolerance = 1e-6 * sizeOf(theirs);
  if (ours.size() != theirs.size()) {
    result.difference =
        std::to_string(ours.size()) + " entities against " + std::to_string(theirs.size());
    return result;
  }
  for (std::size_t i = 0; i < ours.size(); ++i) {
    const std::string where =
        "entity " + std::to_string(i + 1) + " (" + theirs[i]->isA()->name().str() + ")";
    OdResBufPtr a = itemsOf(ours[i].get());
    OdResBufPtr b = itemsOf(theirs[i].get());
    for (int item = 1; !a.isNull() || !b.isNull(); ++item, a = a->next(), b = b->next()) {
      if (a.isNull() || b.isNull() || a->restype() != b->restype()) {
        if (result.difference.empty())
          result.difference = where + ", item " + std::to_string(item) + ": another group code";
        return result;
      }
      const double difference = differenceOf(*a, *b);
      if (difference >= 0) result.deviation = std::max(result.deviation, difference);
      if ((difference < 0 || difference > result.tolerance) && result.difference.empty())
        result.difference =
            where + ", group code " + std::to_string(a->restype()) +
            (difference < 0 ? ": another value" : ": off by " + std::to_string(difference));
    }
  }
  result.same = result.difference.empty();
  return result;
}
