// The small steps on the drawing that the storage's operations share. They open objects through
// openObjectShared, because an outer step may already hold the object open for write.
#pragma once

#include "platform/db/OdDbObject.h"
#include "platform/db/OdDbObjectId.h"
#include "platform/db/cloning/OdDbIdMapping.h"

class CJbCustBlockObjectAccess {
 public:
  // The object opened in `mode` as a T; null when it does not open or is no T.
  template <class T>
  static OdSmartPtr<T> Open(const OdDbObjectId& id, OdDb::OpenMode mode) {
    return T::cast(id.openObjectShared(mode).get());
  }
  // How messages name a block: its name, or its handle when it does not open as a block.
  static OdString NameOf(const OdDbObjectId& blockId);
  // The clone the mapping holds for `id`, or null.
  static OdDbObjectId CloneOf(const OdDbIdMapping& mapping, const OdDbObjectId& id);
  // The references that show the block directly (not through a nested block).
  static OdDbObjectIdArray DirectReferences(const OdDbObjectId& blockId);
  static void PointReferencesAt(const OdDbObjectIdArray& references, const OdDbObjectId& blockId);
  static void Erase(const OdDbObjectId& id);
  // Erases the object only when `ownerId` owns it: an id read from a damaged file can name any
  // object of the drawing.
  static void EraseOwnedBy(const OdDbObjectId& ownerId, const OdDbObjectId& id);
};
